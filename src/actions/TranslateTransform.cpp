#include "actions/TranslateTransform.h"

namespace OrvMediaLib {

double TranslateTransform::transform(double original, double value) const {
  return value + original;
}

TranslateTransform* TranslateTransform::clone() const {
  return new TranslateTransform(*this);
}

}  // namespace OrvMediaLib
