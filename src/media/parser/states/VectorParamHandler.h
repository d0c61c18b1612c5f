#pragma once

#include "media/parser/states/ParseParameterHandler.h"

#include <string>

namespace KelMediaLib {

class VectorParam;

namespace parser {

/// Reads the parameter called `name` as a vector.
class VectorParamHandler : public ParseParameterHandler {
 public:
  VectorParamHandler(std::string name, boost::shared_ptr<const VectorParam> vector,
                     const ParameterContext& context);
  ParserState* startParameter(ParserState::AttributeMap& map) override;

 private:
  std::string name_;
  boost::shared_ptr<const VectorParam> vector_;
  ParameterContext context_;
};

}  // namespace parser
}  // namespace KelMediaLib
