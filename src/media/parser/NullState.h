#pragma once

#include "media/parser/ParserState.h"

namespace KelMediaLib {

/// Skips its element and everything inside it.
class NullState : public ParserState {
 public:
  explicit NullState(Parser* parser);
  ParserState* startElement(const char* name, const char** atts) override;
};

}  // namespace KelMediaLib
