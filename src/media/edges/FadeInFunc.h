#pragma once

#include "media/edges/EdgeModFunc.h"

namespace KelMediaLib {

/// Fades in: `value * fraction`, so 0 at the outer end of the edge.
/// Written as `<FadeInFunc/>`.
class FadeInFunc : public EdgeModFunc {
 public:
  FadeInFunc* clone() const override;
  void xmlName(Options& options) const override;

 protected:
  double applyClamped(double value, double fraction) const override;
};

}  // namespace KelMediaLib
