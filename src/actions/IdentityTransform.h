#pragma once

#include "actions/Transform.h"

namespace OrvMediaLib {

/// Keeps the original and ignores the asked value.
class IdentityTransform : public Transform {
 public:
  double transform(double original, double value) const override;
  /// A new IdentityTransform; the caller owns it.
  IdentityTransform* clone() const override;
};

}  // namespace OrvMediaLib
