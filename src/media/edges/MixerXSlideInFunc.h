#pragma once

#include "media/edges/MixerSlideFunc.h"

namespace KelMediaLib {

/// Enters from the left: `value - extent * (1 - fraction)`, a whole mixer width left of its place
/// at the outer end of the edge. Written as `<MixerXSlideIn/>`.
class MixerXSlideInFunc : public MixerSlideFunc {
 public:
  explicit MixerXSlideInFunc(double extent = 1.0);
  MixerXSlideInFunc* clone() const override;
  void xmlName(Options& options) const override;

 protected:
  double applyClamped(double value, double fraction) const override;
};

}  // namespace KelMediaLib
