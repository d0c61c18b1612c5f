#pragma once

#include "media/parser/states/KeyframesState.h"

namespace KelMediaLib {

/// A parameter without interpolaters: its "Keyframes".
template <class P>
class ParameterState : public ParserState {
 public:
  ParameterState(const parser::ParameterContext& context, boost::shared_ptr<const P> parameter)
      : ParserState(context.parser), context_(context), parameter_(std::move(parameter)) {}

  ParserState* startElement(const char* name, const char**) override {
    if (std::strcmp(name, "Keyframes") != 0) {
      throwUnexpectedName(name, "ParameterState");
    }
    return new KeyframesState<P>(context_, parameter_);
  }

 private:
  parser::ParameterContext context_;
  boost::shared_ptr<const P> parameter_;
};

}  // namespace KelMediaLib
