#pragma once

#include "media/edges/MixerSlideFunc.h"

namespace KelMediaLib {

/// Leaves upwards (y grows downwards): `value - extent * fraction`.
/// Written as `<MixerYSlideOut/>`.
class MixerYSlideOutFunc : public MixerSlideFunc {
 public:
  explicit MixerYSlideOutFunc(double extent = 1.0);
  MixerYSlideOutFunc* clone() const override;
  void xmlName(Options& options) const override;

 protected:
  double applyClamped(double value, double fraction) const override;
};

}  // namespace KelMediaLib
