#pragma once

#include "actions/Transform.h"

namespace OrvMediaLib {

/// The asked value replaces the original: `value`.
class SetTransform : public Transform {
 public:
  double transform(double original, double value) const override;
  /// A new SetTransform; the caller owns it.
  SetTransform* clone() const override;
};

}  // namespace OrvMediaLib
