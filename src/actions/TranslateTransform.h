#pragma once

#include "actions/Transform.h"

namespace OrvMediaLib {

/// Shifts the original by the asked value: `value + original`.
class TranslateTransform : public Transform {
 public:
  double transform(double original, double value) const override;
  /// A new TranslateTransform; the caller owns it.
  TranslateTransform* clone() const override;
};

}  // namespace OrvMediaLib
