#include "actions/IdentityTransform.h"

namespace OrvMediaLib {

double IdentityTransform::transform(double original, double) const {
  return original;
}

IdentityTransform* IdentityTransform::clone() const {
  return new IdentityTransform(*this);
}

}  // namespace OrvMediaLib
