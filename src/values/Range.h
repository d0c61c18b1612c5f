#pragma once

#include "core/KelObject.h"
#include "core/XMLText.h"

#include <istream>
#include <ostream>

namespace KelMediaLib {

/// A stretch of time (or of any ordered axis): `start` and `duration`, the end
/// `start + duration` exclusive. A zero duration is allowed and contains
/// nothing; a negative one is not refused.
template <class T>
class Range : public KelObject {
 public:
  /// The empty range at 0.
  Range() : start(), duration() {}
  Range(T start_, T duration_) : start(start_), duration(duration_) {}

  /// The exclusive end, `start + duration`.
  T end() const { return start + duration; }

  /// True when `start <= t < end()`.
  bool contains(T t) const { return start <= t && t < start + duration; }

  /// The overlap of the two ranges; (0,0) when they are disjoint.
  ///
  /// Both ends are settled independently, each falling back to 0. This keeps
  /// the historical answers for zero-length ranges that callers depend on:
  /// (0,10) with (10,0) gives (0,10), and (5,10) with (15,0) gives (0,15).
  /// Callers that must tell touching ranges apart compare the ends themselves.
  Range intersection(const Range& other) const {
    T resultStart = T();
    if (contains(other.start)) {
      resultStart = other.start;
    } else if (other.contains(start)) {
      resultStart = start;
    }
    T resultEnd = T();
    if (contains(other.end() - 1)) {
      resultEnd = other.end();
    } else if (other.contains(end() - 1)) {
      resultEnd = end();
    }
    return Range(resultStart, resultEnd - resultStart);
  }

  bool operator==(const Range& other) const {
    return start == other.start && duration == other.duration;
  }
  bool operator!=(const Range& other) const { return !(*this == other); }

  T start;
  T duration;
};

/// Writes "(start,duration)" in the stream's current number format.
template <class T>
std::ostream& operator<<(std::ostream& out, const Range<T>& range) {
  return out << '(' << range.start << ',' << range.duration << ')';
}

/// Reads a separator, the start, a separator, the duration and a separator.
/// The separators are consumed but not checked, so "{1;2}" reads like
/// "(1,2)"; the range is assigned only after the last separator.
template <class T>
std::istream& operator>>(std::istream& in, Range<T>& range) {
  char separator = 0;
  T start = T();
  T duration = T();
  in >> separator >> start >> separator >> duration >> separator;
  range.start = start;
  range.duration = duration;
  return in;
}

/// Writes "(start,duration)" with numbers that read back bit for bit.
template <class T>
void writeXMLValue(std::ostream& out, const Range<T>& range) {
  out << '(';
  writeXMLValue(out, range.start);
  out << ',';
  writeXMLValue(out, range.duration);
  out << ')';
}

}  // namespace KelMediaLib
