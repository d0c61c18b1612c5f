#pragma once

#include "core/XMLIdentified.h"
#include "media/edges/MixerSlideFunc.h"

namespace KelMediaLib {

/// Enters from below (y grows downwards): `value + extent * (1 - fraction)`.
/// `angle` (degrees) is the tilt at which the renderer draws the sliding
/// media; it travels with the function and the file but doesn't change the
/// translation.
/// Written as `<MixerYSlideIn id=".." angle=".."/>`.
class MixerYSlideInFunc : public MixerSlideFunc, public virtual XMLIdentified {
 public:
  explicit MixerYSlideInFunc(double angle, double extent = 1.0);
  /// Keeps the angle and the extent; a fresh ident.
  MixerYSlideInFunc(const MixerYSlideInFunc& other);

  double angle() const { return angle_; }

  MixerYSlideInFunc* clone() const override;
  void xmlName(Options& options) const override;
  void xmlAttributes(Options& options) const override;

 protected:
  bool xmlHasAttributes() const override { return true; }
  double applyClamped(double value, double fraction) const override;

 private:
  double angle_;
};

}  // namespace KelMediaLib
