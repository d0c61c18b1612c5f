#include "values/Parametric.h"

#include "core/KelMediaLibException.h"
#include "values/ParameterInterface.h"
#include "values/VectorParam.h"

namespace KelMediaLib {

Parametric::Parametric() = default;

Parametric::Parametric(const Parametric& other) : XMLIdentified(other) {}

Parametric::~Parametric() = default;

double Parametric::toParameterTime(double time) const { return time; }

double Parametric::fromParameterTime(double time) const { return time; }

long long Parametric::toLocalTime(long long time) const { return time; }

boost::shared_ptr<ParameterInterface> Parametric::parameterNamed(const std::string& name) const {
  const auto found = byName_.find(name);
  return found == byName_.end() ? boost::shared_ptr<ParameterInterface>() : found->second;
}

std::vector<boost::shared_ptr<ParameterInterface>> Parametric::parameters() const {
  return ordered_;
}

void Parametric::registerParameter(const boost::shared_ptr<ParameterInterface>& parameter) {
  if (!parameter) {
    throw KelMediaLibException("a parametric can't register a null parameter");
  }
  if (!byName_.emplace(parameter->name(), parameter).second) {
    throw KelMediaLibException("a parametric already has a parameter named \"" +
                               parameter->name() + "\"");
  }
  ordered_.push_back(parameter);
}

void Parametric::registerVector(const VectorParam& vector) {
  // Checked first, so that a clash leaves no member of the vector behind.
  for (int i = 0; i < vector.numDimensions(); ++i) {
    if (byName_.count(vector.at(i)->name())) {
      throw KelMediaLibException("a parametric already has a parameter named \"" +
                                 vector.at(i)->name() + "\"");
    }
  }
  for (int i = 0; i < vector.numDimensions(); ++i) {
    registerParameter(vector.at(i));
  }
}

}  // namespace KelMediaLib
