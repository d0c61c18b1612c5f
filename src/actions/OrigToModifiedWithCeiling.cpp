#include "actions/OrigToModifiedWithCeiling.h"

#include "actions/Transform.h"

namespace OrvMediaLib {

OrigToModifiedWithCeiling::OrigToModifiedWithCeiling(double ceiling) : ceiling_(ceiling) {}

double OrigToModifiedWithCeiling::calcLeftValue(
    boost::shared_ptr<const KelMediaLib::Parameter<double>> parameter, const Transform&,
    long long time, double) const {
  return originalValue(parameter, static_cast<double>(time));
}

double OrigToModifiedWithCeiling::calcRightValue(
    boost::shared_ptr<const KelMediaLib::Parameter<double>> parameter, const Transform& transform,
    long long time, double value) const {
  const double moved =
      transform.transform(originalValue(parameter, static_cast<double>(time)), value);
  // The bound is taken only when it is below: a NaN goes through as it is.
  return ceiling_ < moved ? ceiling_ : moved;
}

OrigToModifiedWithCeiling* OrigToModifiedWithCeiling::clone() const {
  return new OrigToModifiedWithCeiling(*this);
}

}  // namespace OrvMediaLib
