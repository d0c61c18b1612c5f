#pragma once

#include "media/parser/states/ParseParameterHandler.h"

namespace KelMediaLib {

class GenericEffect;

namespace parser {

/// The end of an effect's chain: the effect's parameter of that name, read
/// by the state that its value type asks for. Only interpolating parameters
/// of doubles, points and colours have a reader; a parameter of images is
/// skipped.
class EffectParameterHandler : public ParseParameterHandler {
 public:
  EffectParameterHandler(boost::shared_ptr<GenericEffect> effect, const ParameterContext& context);
  ParserState* startParameter(ParserState::AttributeMap& map) override;

 private:
  boost::shared_ptr<GenericEffect> effect_;
  ParameterContext context_;
};

}  // namespace parser
}  // namespace KelMediaLib
