#include "media/edges/EdgeModFunc.h"

#include "core/KelMediaLibException.h"

#include <algorithm>
#include <cmath>

namespace KelMediaLib {

EdgeModFunc::~EdgeModFunc() = default;

double EdgeModFunc::apply(double value, double fraction) const {
  if (std::isnan(fraction)) {
    throw KelMediaLibException("edge function " + description() +
                               ": the fraction of the edge is not a number");
  }
  return applyClamped(value, std::min(1.0, std::max(0.0, fraction)));
}

}  // namespace KelMediaLib
