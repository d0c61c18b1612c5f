#pragma once

#include "actions/Transform.h"

namespace OrvMediaLib {

/// Scales the original by the asked factor: `original * value`.
class PureScaleTransform : public Transform {
 public:
  double transform(double original, double value) const override;
  /// A new PureScaleTransform; the caller owns it.
  PureScaleTransform* clone() const override;
};

}  // namespace OrvMediaLib
