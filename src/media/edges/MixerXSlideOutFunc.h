#pragma once

#include "media/edges/MixerSlideFunc.h"

namespace KelMediaLib {

/// Leaves to the right: `value + extent * fraction`, a whole mixer width right of its place at the
/// media's end. Written as `<MixerXSlideOut/>`.
class MixerXSlideOutFunc : public MixerSlideFunc {
 public:
  explicit MixerXSlideOutFunc(double extent = 1.0);
  MixerXSlideOutFunc* clone() const override;
  void xmlName(Options& options) const override;

 protected:
  double applyClamped(double value, double fraction) const override;
};

}  // namespace KelMediaLib
