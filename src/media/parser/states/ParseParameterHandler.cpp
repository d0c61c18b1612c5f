#include "media/parser/states/ParseParameterHandler.h"

#include "core/KelMediaLibException.h"

namespace KelMediaLib {
namespace parser {

ParseParameterHandler::ParseParameterHandler() = default;

ParseParameterHandler::~ParseParameterHandler() = default;

ParserState* ParseParameterHandler::passOn(ParserState::AttributeMap& map) {
  if (!child_) {
    throw KelMediaLibException("parameter handler hit a dead end");
  }
  return child_->startParameter(map);
}

}  // namespace parser
}  // namespace KelMediaLib
