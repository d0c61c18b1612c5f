#include "media/parser/states/ParameterErrorHandler.h"

#include "core/ParserException.h"

namespace KelMediaLib {
namespace parser {

ParameterErrorHandler::ParameterErrorHandler(std::string owner) : owner_(std::move(owner)) {}

ParserState* ParameterErrorHandler::startParameter(ParserState::AttributeMap& map) {
  throw ParserException("Unexpected parameter \"" + map["name"] + "\" in " + owner_, 0, 0);
}

}  // namespace parser
}  // namespace KelMediaLib
