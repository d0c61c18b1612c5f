#include "actions/PureScaleTransform.h"

namespace OrvMediaLib {

double PureScaleTransform::transform(double original, double value) const {
  return original * value;
}

PureScaleTransform* PureScaleTransform::clone() const {
  return new PureScaleTransform(*this);
}

}  // namespace OrvMediaLib
