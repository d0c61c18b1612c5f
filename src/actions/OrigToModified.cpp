#include "actions/OrigToModified.h"

#include "actions/Transform.h"

namespace OrvMediaLib {

double OrigToModified::calcLeftValue(
    boost::shared_ptr<const KelMediaLib::Parameter<double>> parameter, const Transform&,
    long long time, double) const {
  return originalValue(parameter, static_cast<double>(time));
}

double OrigToModified::calcRightValue(
    boost::shared_ptr<const KelMediaLib::Parameter<double>> parameter, const Transform& transform,
    long long time, double value) const {
  return transform.transform(originalValue(parameter, static_cast<double>(time)), value);
}

OrigToModified* OrigToModified::clone() const {
  return new OrigToModified(*this);
}

}  // namespace OrvMediaLib
