#include "media/effects/Effect.h"

namespace KelMediaLib {

Effect::Effect(const std::string& name, boost::weak_ptr<const ThreadSafe> project)
    : SubProject(project), name_(name), owner_(nullptr) {}

Effect::Effect(const Effect& other)
    : KelObject(other), Cloneable(other), Parametric(other), SubProject(other), XMLable(other),
      name_(other.name_), owner_(nullptr) {}

Effect::~Effect() = default;

double Effect::toParameterTime(double time) const {
  return owner_ ? owner_->toParameterTime(time) : time;
}

double Effect::fromParameterTime(double time) const {
  return owner_ ? owner_->fromParameterTime(time) : time;
}

long long Effect::toLocalTime(long long time) const {
  return owner_ ? owner_->toLocalTime(time) : time;
}

}  // namespace KelMediaLib
