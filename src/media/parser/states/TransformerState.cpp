#include "media/parser/states/TransformerState.h"

#include "core/ParserException.h"
#include "media/media/Transformer.h"
#include "media/parser/states/VectorParamState.h"

#include <cstring>

namespace KelMediaLib {

TransformerState::TransformerState(const parser::ParameterContext& context,
                                   boost::shared_ptr<const Transformer> transformer)
    : ParserState(context.parser), context_(context), transformer_(std::move(transformer)) {}

ParserState* TransformerState::startElement(const char* name, const char** atts) {
  if (std::strcmp(name, "VectorParam") != 0) {
    throwUnexpectedName(name, "Transformer State");
  }
  AttributeMap map;
  genMap("VectorParam", "id name", "", atts, map);
  const std::string& vectorName = map["name"];
  boost::shared_ptr<const VectorParam> vector;
  if (vectorName == "translation") {
    vector = transformer_->translation();
  } else if (vectorName == "rotation") {
    vector = transformer_->rotation();
  } else if (vectorName == "shear") {
    vector = transformer_->shear();
  } else if (vectorName == "anchor") {
    vector = transformer_->anchor();
  } else if (vectorName == "scale") {
    vector = transformer_->scale();
  } else {
    throw ParserException("Unexpected  VectorParam \"" + vectorName + "\" in Transformer State",
                          0, 0);
  }
  return new VectorParamState(context_, vector);
}

}  // namespace KelMediaLib
