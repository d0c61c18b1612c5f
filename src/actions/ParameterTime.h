#pragma once

namespace OrvMediaLib {

/// A time mapped by a `Parametric` (a double) as a 64-bit count, truncated
/// toward zero. Throws `OrvException` for a NaN or a time beyond the 64-bit
/// range, which no key frame can stand at.
long long truncateTime(double time);

}  // namespace OrvMediaLib
