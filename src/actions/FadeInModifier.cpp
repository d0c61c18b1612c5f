#include "actions/FadeInModifier.h"

#include "actions/Transform.h"

namespace OrvMediaLib {

double FadeInModifier::calcLeftValue(
    boost::shared_ptr<const KelMediaLib::Parameter<double>> parameter, const Transform&,
    long long time, double) const {
  const double original = originalValue(parameter, static_cast<double>(time));
  return original == 1.0 ? 0.0 : original;
}

double FadeInModifier::calcRightValue(
    boost::shared_ptr<const KelMediaLib::Parameter<double>> parameter, const Transform& transform,
    long long time, double value) const {
  const double moved =
      transform.transform(originalValue(parameter, static_cast<double>(time)), value);
  // The bound is taken only when it is below: a NaN goes through as it is.
  return 1.0 < moved ? 1.0 : moved;
}

FadeInModifier* FadeInModifier::clone() const {
  return new FadeInModifier(*this);
}

}  // namespace OrvMediaLib
