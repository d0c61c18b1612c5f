#include "media/parser/states/ParametersState.h"

#include <cstring>

namespace KelMediaLib {

ParametersState::ParametersState(Parser* parser,
                                 std::unique_ptr<parser::ParseParameterHandler> chain)
    : ParserState(parser), chain_(std::move(chain)) {}

ParametersState::~ParametersState() = default;

ParserState* ParametersState::startElement(const char* name, const char** atts) {
  if (std::strcmp(name, "Parameter") != 0 && std::strcmp(name, "InterpolatingParam") != 0 &&
      std::strcmp(name, "VectorParam") != 0) {
    throwUnexpectedName(name, "Parameters");
  }
  AttributeMap map;
  genMap("Parameter", "id name", "", atts, map);
  return chain_->startParameter(map);
}

}  // namespace KelMediaLib
