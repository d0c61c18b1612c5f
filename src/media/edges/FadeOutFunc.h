#pragma once

#include "media/edges/EdgeModFunc.h"

namespace KelMediaLib {

/// Fades out: `value * (1 - fraction)`, so 0 at the media's end.
/// Written as `<FadeOutFunc/>`.
class FadeOutFunc : public EdgeModFunc {
 public:
  FadeOutFunc* clone() const override;
  void xmlName(Options& options) const override;

 protected:
  double applyClamped(double value, double fraction) const override;
};

}  // namespace KelMediaLib
