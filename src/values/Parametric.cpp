#include "values/Parametric.h"

#include "core/KelMediaLibException.h"
#include "values/ParameterInterface.h"
#include "values/VectorParam.h"

#include <algorithm>

namespace KelMediaLib {

Parametric::Parametric() = default;

Parametric::Parametric(const Parametric& other) : XMLIdentified(other) {}

Parametric::~Parametric() = default;

double Parametric::toParameterTime(double time) const {
  return time;
}

double Parametric::fromParameterTime(double time) const {
  return time;
}

long long Parametric::toLocalTime(long long time) const {
  return time;
}

std::vector<Parametric::Name>::const_iterator Parametric::findName(const std::string& name) const {
  return std::lower_bound(
      byName_.begin(), byName_.end(), name,
      [](const Name& entry, const std::string& key) { return entry.first < key; });
}

boost::shared_ptr<ParameterInterface> Parametric::parameterNamed(const std::string& name) const {
  const auto found = findName(name);
  return found == byName_.end() || found->first != name ? boost::shared_ptr<ParameterInterface>()
                                                        : ordered_[found->second];
}

std::vector<boost::shared_ptr<ParameterInterface>> Parametric::parameters() const {
  return ordered_;
}

void Parametric::registerParameter(const boost::shared_ptr<ParameterInterface>& parameter) {
  if (!parameter) {
    throw KelMediaLibException("a parametric can't register a null parameter");
  }
  const auto at = findName(parameter->name());
  if (at != byName_.end() && at->first == parameter->name()) {
    throw KelMediaLibException("a parametric already has a parameter named \"" + parameter->name() +
                               "\"");
  }
  // Room first in both, so that nothing is half registered if memory fails.
  const auto place = at - byName_.begin();
  byName_.reserve(byName_.size() + 1);
  ordered_.reserve(ordered_.size() + 1);
  byName_.insert(byName_.begin() + place, Name(parameter->name(), ordered_.size()));
  ordered_.push_back(parameter);
}

void Parametric::registerVector(const VectorParam& vector) {
  // Checked first, so that a clash leaves no member of the vector behind.
  for (int i = 0; i < vector.numDimensions(); ++i) {
    const std::string& name = vector.at(i)->name();
    const auto found = findName(name);
    if (found != byName_.end() && found->first == name) {
      throw KelMediaLibException("a parametric already has a parameter named \"" +
                                 vector.at(i)->name() + "\"");
    }
  }
  for (int i = 0; i < vector.numDimensions(); ++i) {
    registerParameter(vector.at(i));
  }
}

}  // namespace KelMediaLib
