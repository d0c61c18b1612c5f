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

std::vector<std::uint32_t>::const_iterator Parametric::findName(const std::string& name) const {
  return std::lower_bound(byName_.begin(), byName_.end(), name,
                          [this](std::uint32_t index, const std::string& key) {
                            return ordered_[index]->name() < key;
                          });
}

bool Parametric::hasName(const std::string& name) const {
  const auto found = findName(name);
  return found != byName_.end() && ordered_[*found]->name() == name;
}

boost::shared_ptr<ParameterInterface> Parametric::parameterNamed(const std::string& name) const {
  const auto found = findName(name);
  return found != byName_.end() && ordered_[*found]->name() == name
             ? ordered_[*found]
             : boost::shared_ptr<ParameterInterface>();
}

std::vector<boost::shared_ptr<ParameterInterface>> Parametric::parameters() const {
  return ordered_;
}

void Parametric::registerParameter(const boost::shared_ptr<ParameterInterface>& parameter) {
  if (!parameter) {
    throw KelMediaLibException("a parametric can't register a null parameter");
  }
  if (hasName(parameter->name())) {
    throw KelMediaLibException("a parametric already has a parameter named \"" + parameter->name() +
                               "\"");
  }
  // Room first in both, so that nothing is half registered if memory fails.
  const auto place = findName(parameter->name()) - byName_.begin();
  byName_.reserve(byName_.size() + 1);
  ordered_.reserve(ordered_.size() + 1);
  byName_.insert(byName_.begin() + place, static_cast<std::uint32_t>(ordered_.size()));
  ordered_.push_back(parameter);
}

void Parametric::registerVector(const VectorParam& vector) {
  // Checked first, so that a clash leaves no member of the vector behind.
  for (int i = 0; i < vector.numDimensions(); ++i) {
    if (hasName(vector.at(i)->name())) {
      throw KelMediaLibException("a parametric already has a parameter named \"" +
                                 vector.at(i)->name() + "\"");
    }
  }
  for (int i = 0; i < vector.numDimensions(); ++i) {
    registerParameter(vector.at(i));
  }
}

}  // namespace KelMediaLib
