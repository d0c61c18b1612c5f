#include "media/parser/states/VectorParamState.h"

#include "core/ParserException.h"
#include "media/parser/Parser.h"
#include "media/parser/SymbolTable.h"
#include "media/parser/states/InterpolatingParamState.h"
#include "values/VectorParam.h"

namespace KelMediaLib {

VectorParamState::VectorParamState(const parser::ParameterContext& context,
                                   boost::shared_ptr<const VectorParam> vector)
    : ParserState(context.parser), context_(context), vector_(std::move(vector)) {}

ParserState* VectorParamState::startElement(const char* name, const char** atts) {
  if (std::strcmp(name, "InterpolatingParam") != 0) {
    throwUnexpectedName(name, "VectorParam");
  }
  if (index_ >= vector_->numDimensions()) {
    throw ParserException("too many params supplied to VectorParam", 0, 0);
  }
  const boost::shared_ptr<const InterpolatingParam<double>> member = vector_->at(index_++);
  AttributeMap map;
  genMap("InterpolatingParamState", "id", "", atts, map);
  parser()->symbolTable().addParameterSymbol(
      static_cast<unsigned int>(attributeCast<int>(map["id"])), member);
  return new InterpolatingParamState<double>(context_, member);
}

}  // namespace KelMediaLib
