#pragma once

#include "core/XMLIdentified.h"
#include "media/edges/EdgeModFunc.h"

namespace KelMediaLib {

/// Spins a rotation member (degrees): `value + numRotations * 360 * fraction`.
/// A negative count turns the other way.
/// Written as `<Rotate id=".." numRotations=".."/>`.
class RotateFunc : public EdgeModFunc, public virtual XMLIdentified {
 public:
  explicit RotateFunc(int numRotations);
  /// Keeps the count; a fresh ident.
  RotateFunc(const RotateFunc& other);

  int numRotations() const { return numRotations_; }

  RotateFunc* clone() const override;
  void xmlName(Options& options) const override;
  void xmlAttributes(Options& options) const override;

 protected:
  bool xmlHasAttributes() const override { return true; }
  double applyClamped(double value, double fraction) const override;

 private:
  int numRotations_;
};

}  // namespace KelMediaLib
