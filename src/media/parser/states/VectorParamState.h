#pragma once

#include "media/parser/states/ParseParameterHandler.h"

namespace KelMediaLib {

class VectorParam;

/// A vector: one "InterpolatingParam" per member, in the order of the
/// members, each entered in the symbol table under its "id". Fewer members
/// than the vector has leave the others as they were.
class VectorParamState : public ParserState {
 public:
  VectorParamState(const parser::ParameterContext& context,
                   boost::shared_ptr<const VectorParam> vector);
  ParserState* startElement(const char* name, const char** atts) override;

 private:
  parser::ParameterContext context_;
  boost::shared_ptr<const VectorParam> vector_;
  int index_ = 0;
};

}  // namespace KelMediaLib
