#pragma once

#include <istream>
#include <ostream>

namespace KelMediaLib {

/// Where a sound sits: `pan` from left (-1) to right (1), `depth` from front
/// (-1) to back (1). A plain value without a polymorphic base.
class AudioPosition {
 public:
  /// Centre front: both fields zero.
  AudioPosition();
  AudioPosition(double pan_, double depth_);

  /// Each field times `factor`.
  AudioPosition operator*(double factor) const;
  /// Field by field sum.
  AudioPosition operator+(const AudioPosition& other) const;
  bool operator==(const AudioPosition& other) const;
  bool operator!=(const AudioPosition& other) const;

  double pan;
  double depth;
};

/// Writes "(pan,depth)" with numbers that read back bit for bit.
std::ostream& operator<<(std::ostream& out, const AudioPosition& position);
/// Reads "(pan,depth)"; brackets and comma are checked, and the position is
/// only assigned when the whole form was read.
std::istream& operator>>(std::istream& in, AudioPosition& position);
void writeXMLValue(std::ostream& out, const AudioPosition& position);

}  // namespace KelMediaLib
