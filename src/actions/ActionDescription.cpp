#include "actions/ActionDescription.h"

#include "actions/Modifier.h"
#include "actions/OrigToModified.h"
#include "actions/Transform.h"

namespace OrvMediaLib {

ActionDescription::RangeDescription::RangeDescription(const std::string& parameterName,
                                                      const Modifier& modifier,
                                                      const Transform& transform, double value)
    : parameterName_(parameterName),
      modifier_(modifier.clone()),
      transform_(transform.clone()),
      value_(value) {}

ActionDescription::RangeDescription::RangeDescription(const std::string& parameterName,
                                                      const std::string& interpolater,
                                                      const Transform& transform, double value)
    : parameterName_(parameterName),
      modifier_(new OrigToModified()),
      transform_(transform.clone()),
      value_(value),
      interpolater_(interpolater) {}

ActionDescription::RangeDescription::RangeDescription(const RangeDescription& other)
    : parameterName_(other.parameterName_),
      modifier_(other.modifier_->clone()),
      transform_(other.transform_->clone()),
      value_(other.value_),
      interpolater_(other.interpolater_) {}

ActionDescription::RangeDescription& ActionDescription::RangeDescription::operator=(
    const RangeDescription& other) {
  if (this != &other) {
    RangeDescription copy(other);
    parameterName_.swap(copy.parameterName_);
    modifier_.swap(copy.modifier_);
    transform_.swap(copy.transform_);
    value_ = copy.value_;
    interpolater_.swap(copy.interpolater_);
  }
  return *this;
}

ActionDescription::RangeDescription::~RangeDescription() = default;

ActionDescription::ActionDescription(ActionType actionType) : actionType_(actionType) {}

void ActionDescription::addParameterRange(const RangeDescription& rangeDescription) {
  rangeDescriptions_.push_back(rangeDescription);
}

}  // namespace OrvMediaLib
