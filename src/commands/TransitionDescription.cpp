#include "commands/TransitionDescription.h"

#include "media/edges/EdgeModFunc.h"
#include "media/media/Media.h"
#include "values/ParameterInterface.h"

#include <boost/pointer_cast.hpp>

#include <utility>

namespace OrvMediaLib {

TransitionDescription::ModifierDescription::ModifierDescription(
    std::string parameterName, const KelMediaLib::EdgeModFunc& leftFunction,
    const KelMediaLib::EdgeModFunc& rightFunction)
    : parameterName_(std::move(parameterName)),
      left_(leftFunction.clone()),
      right_(rightFunction.clone()) {}

boost::shared_ptr<const KelMediaLib::Parameter<double>>
TransitionDescription::ModifierDescription::parameterOf(const KelMediaLib::Media& media) const {
  return boost::dynamic_pointer_cast<const KelMediaLib::Parameter<double>>(
      media.parameterNamed(parameterName_));
}

TransitionDescription::TransitionDescription() = default;

void TransitionDescription::addModifier(const ModifierDescription& modifier) {
  modifiers_.push_back(modifier);
}

}  // namespace OrvMediaLib
