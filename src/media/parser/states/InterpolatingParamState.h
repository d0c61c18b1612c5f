#pragma once

#include "media/parser/states/ParameterErrorHandler.h"
#include "media/parser/states/ParameterHandler.h"
#include "media/parser/states/ParametersState.h"
#include "values/InterpolatingParam.h"

namespace KelMediaLib {

/// An interpolating parameter: its companion of interpolaters (a
/// "Parameters" block with the parameter "interpolater") and its "Keyframes".
template <class T>
class InterpolatingParamState : public ParserState {
 public:
  InterpolatingParamState(const parser::ParameterContext& context,
                          boost::shared_ptr<const InterpolatingParam<T>> parameter)
      : ParserState(context.parser), context_(context), parameter_(std::move(parameter)) {}

  ParserState* startElement(const char* name, const char**) override {
    if (std::strcmp(name, "Parameters") == 0) {
      typedef typename Parameter<T>::InterpolaterParameter Companion;
      auto chain = std::make_unique<parser::ParameterHandler<Companion>>(
          "interpolater", boost::shared_ptr<const Companion>(parameter_->interpolaterParameter()),
          context_);
      chain->setChild(std::make_unique<parser::ParameterErrorHandler>("Parameters"));
      return new ParametersState(parser(), std::move(chain));
    }
    if (std::strcmp(name, "Keyframes") == 0) {
      return new KeyframesState<Parameter<T>>(context_, parameter_);
    }
    throwUnexpectedName(name, "InterpolatingParamState");
  }

  /// A companion read at rest is not kept: most parameters of a project
  /// never need one.
  void endElement(const char*) override {
    boost::const_pointer_cast<InterpolatingParam<T>>(parameter_)->releaseCompanionAtRest();
  }

 private:
  parser::ParameterContext context_;
  boost::shared_ptr<const InterpolatingParam<T>> parameter_;
};

}  // namespace KelMediaLib
