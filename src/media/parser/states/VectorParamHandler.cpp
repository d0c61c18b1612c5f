#include "media/parser/states/VectorParamHandler.h"

#include "media/parser/states/VectorParamState.h"

namespace KelMediaLib {
namespace parser {

VectorParamHandler::VectorParamHandler(std::string name,
                                       boost::shared_ptr<const VectorParam> vector,
                                       const ParameterContext& context)
    : name_(std::move(name)), vector_(std::move(vector)), context_(context) {}

ParserState* VectorParamHandler::startParameter(ParserState::AttributeMap& map) {
  if (map["name"] != name_) {
    return passOn(map);
  }
  return new VectorParamState(context_, vector_);
}

}  // namespace parser
}  // namespace KelMediaLib
