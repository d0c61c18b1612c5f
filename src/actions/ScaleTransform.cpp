#include "actions/ScaleTransform.h"

namespace OrvMediaLib {

double ScaleTransform::transform(double original, double value) const {
  // A zero can't grow by a factor: "150" then means 1.5. The test is exact,
  // and a NaN original takes the product.
  if (original == 0.0) {
    return value * 0.01;
  }
  return original * value;
}

ScaleTransform* ScaleTransform::clone() const {
  return new ScaleTransform(*this);
}

}  // namespace OrvMediaLib
