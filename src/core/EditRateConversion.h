#pragma once

#include "core/ProjectEditRate.h"

namespace KelMediaLib {

/// Conversions between time axes of different rates (units per second).
///
/// Every conversion of a time to edit units in the library goes through these,
/// so that all of them round alike: the exact result of the conversion, a
/// rational number computed without any intermediate rounding, goes to the
/// nearest whole unit, and a result exactly halfway between two units goes
/// away from zero (2.5 -> 3, -2.5 -> -3). A result outside the signed 64-bit
/// range, a rate of 0 and a time that isn't finite throw
/// `KelMediaLibException`; nothing is clamped.

/// `count` units of a `from` rate as a count of units of the `to` rate:
/// 10 frames at 25/1 are 12 units at 30/1 (12.0 exactly), 2000 samples at
/// 8000/1 are 8 units at 30/1 (7.5, rounded away from zero). Used for a
/// source track's frames or samples becoming project edit units.
long long rescaleEditUnits(long long count, const EditRate& from, const EditRate& to);

/// `seconds`, taken at its exact binary value (0.1 is a little above one
/// tenth), as edit units of `rate`. Used for times that files give in
/// seconds, such as a screen recording's metadata.
long long secondsToEditUnits(double seconds, const EditRate& rate);

}  // namespace KelMediaLib
