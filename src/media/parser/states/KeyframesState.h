#pragma once

#include "media/parser/AttributeCast.h"
#include "media/parser/NullState.h"
#include "media/parser/states/ParseParameterHandler.h"
#include "media/project/Project.h"
#include "values/AddParameterKeyFrameCmd.h"
#include "values/Parametric.h"
#include "values/RemoveParameterKeyFrameCmd.h"

#include <cstring>

namespace KelMediaLib {

/// The "Keyframes" of parameter `P`. A parameter is born with a key frame at
/// time 0, which the file's key frames replace: it is removed when the
/// element opens, and each "Keyframe" is added with `AddParameterKeyFrameCmd`
/// at its time, on the parameter's own axis.
template <class P>
class KeyframesState : public ParserState {
 public:
  KeyframesState(const parser::ParameterContext& context, boost::shared_ptr<const P> parameter)
      : ParserState(context.parser), context_(context), parameter_(std::move(parameter)) {
    if (parameter_->hasKeyFrameAt(0)) {
      const auto time = static_cast<long long>(context_.parametric->toParameterTime(0.0));
      context_.project->execute(boost::make_shared<RemoveParameterKeyFrameCmd<P>>(
          context_.parametric, parameter_, time));
    }
  }

  ParserState* startElement(const char* name, const char** atts) override {
    if (std::strcmp(name, "Keyframe") != 0) {
      throwUnexpectedName(name, "KeyframesState");
    }
    AttributeMap map;
    genMap("Keyframe State", "time value", "", atts, map);
    const auto time = attributeCast<long long>(map["time"]);
    const auto value = attributeCast<typename P::value_type>(map["value"]);
    context_.project->execute(
        boost::make_shared<AddParameterKeyFrameCmd<P>>(parameter_, time, value));
    return new NullState(parser());
  }

 private:
  parser::ParameterContext context_;
  boost::shared_ptr<const P> parameter_;
};

}  // namespace KelMediaLib
