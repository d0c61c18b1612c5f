#pragma once

#include "actions/Transform.h"

namespace OrvMediaLib {

/// Scales the original by the asked factor: `original * value`. An original of
/// exactly 0 can't be scaled, so the factor is then read as a percentage of
/// one: `value * 0.01`.
class ScaleTransform : public Transform {
 public:
  double transform(double original, double value) const override;
  /// A new ScaleTransform; the caller owns it.
  ScaleTransform* clone() const override;
};

}  // namespace OrvMediaLib
