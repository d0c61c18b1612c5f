#pragma once

#include "media/parser/states/ParseParameterHandler.h"

#include <memory>

namespace KelMediaLib {

/// A "Parameters" block. Each child ("Parameter", "InterpolatingParam" or
/// "VectorParam": the element's name says nothing, its "name" attribute
/// decides) goes to the owner's chain of handlers.
class ParametersState : public ParserState {
 public:
  ParametersState(Parser* parser, std::unique_ptr<parser::ParseParameterHandler> chain);
  ~ParametersState() override;
  ParserState* startElement(const char* name, const char** atts) override;
  parser::ParseParameterHandler* parameterHandler() const { return chain_.get(); }

 private:
  std::unique_ptr<parser::ParseParameterHandler> chain_;
};

}  // namespace KelMediaLib
