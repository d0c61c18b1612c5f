#pragma once

#include "media/parser/ParserState.h"

#include <boost/shared_ptr.hpp>

namespace KelMediaLib {

class Project;

/// The "SourceBin" element: one "Source" per source file.
class SourceBinState : public ParserState {
 public:
  SourceBinState(Parser* parser, boost::shared_ptr<Project> project);
  ParserState* startElement(const char* name, const char** atts) override;

 private:
  boost::shared_ptr<Project> project_;
};

}  // namespace KelMediaLib
