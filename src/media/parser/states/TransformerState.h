#pragma once

#include "media/parser/states/ParseParameterHandler.h"

namespace KelMediaLib {

class Transformer;

/// A "Transformer": its vectors by name ("translation", "rotation",
/// "shear", "anchor", "scale").
class TransformerState : public ParserState {
 public:
  TransformerState(const parser::ParameterContext& context,
                   boost::shared_ptr<const Transformer> transformer);
  ParserState* startElement(const char* name, const char** atts) override;

 private:
  parser::ParameterContext context_;
  boost::shared_ptr<const Transformer> transformer_;
};

}  // namespace KelMediaLib
