#include "actions/SetTransform.h"

namespace OrvMediaLib {

double SetTransform::transform(double, double value) const {
  return value;
}

SetTransform* SetTransform::clone() const {
  return new SetTransform(*this);
}

}  // namespace OrvMediaLib
