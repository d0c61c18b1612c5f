#include "actions/ParameterTime.h"

#include "actions/OrvException.h"

namespace OrvMediaLib {

long long truncateTime(double time) {
  // 2^63 is exact in a double: the doubles in [-2^63, 2^63) truncate into the
  // 64-bit range, and the comparisons are false for a NaN.
  const double limit = 9223372036854775808.0;
  if (!(time >= -limit && time < limit)) {
    throw OrvException("a mapped time doesn't fit a 64-bit count of edit units");
  }
  return static_cast<long long>(time);
}

}  // namespace OrvMediaLib
