#include "media/parser/states/EffectParameterHandler.h"

#include "core/ParserException.h"
#include "media/effects/GenericEffect.h"
#include "media/parser/NullState.h"
#include "media/parser/states/InterpolatingParamState.h"
#include "values/ParameterDispatcher.h"

namespace KelMediaLib {
namespace parser {

namespace {

[[noreturn]] void notImplementedError() {
  throw ParserException("Trying to read unimplemnted parameter data type", 0, 0);
}

// Makes the state that reads a parameter of the type dispatched.
class ParamStateGenerator : public ParameterDispatcher {
 public:
  explicit ParamStateGenerator(const ParameterContext& context) : context_(context) {}

  void receive(const boost::shared_ptr<Parameter<double>>& parameter) override {
    interpolating(parameter);
  }
  void receive(const boost::shared_ptr<Parameter<Point>>& parameter) override {
    interpolating(parameter);
  }
  void receive(const boost::shared_ptr<Parameter<Color>>& parameter) override {
    interpolating(parameter);
  }
  void receive(const boost::shared_ptr<Parameter<boost::shared_ptr<IMFile>>>&) override {
    state_.reset(new NullState(context_.parser));
  }

  /// The state made, now the caller's; a type without a reader throws.
  ParserState* grabParserState() {
    if (!state_) {
      notImplementedError();
    }
    return state_.release();
  }

 private:
  template <class T>
  void interpolating(const boost::shared_ptr<Parameter<T>>& parameter) {
    const auto typed = boost::dynamic_pointer_cast<const InterpolatingParam<T>>(parameter);
    if (typed) {
      state_.reset(new InterpolatingParamState<T>(context_, typed));
    }
  }

  ParameterContext context_;
  std::unique_ptr<ParserState> state_;
};

}  // namespace

EffectParameterHandler::EffectParameterHandler(boost::shared_ptr<GenericEffect> effect,
                                               const ParameterContext& context)
    : effect_(std::move(effect)), context_(context) {}

ParserState* EffectParameterHandler::startParameter(ParserState::AttributeMap& map) {
  const boost::shared_ptr<ParameterInterface> parameter = effect_->parameterWithName(map["name"]);
  if (!parameter) {
    throw ParserException(
        "Generic Effect:" + effect_->name() + " does not have a parameter:" + map["name"], 0, 0);
  }
  ParamStateGenerator generator(context_);
  parameter->dispatch(generator);
  return generator.grabParserState();
}

}  // namespace parser
}  // namespace KelMediaLib
