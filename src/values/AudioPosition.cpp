#include "values/AudioPosition.h"

#include "values/ValueText.h"

namespace KelMediaLib {

AudioPosition::AudioPosition() : pan(0.0), depth(0.0) {}

AudioPosition::AudioPosition(double pan_, double depth_) : pan(pan_), depth(depth_) {}

AudioPosition AudioPosition::operator*(double factor) const {
  return AudioPosition(pan * factor, depth * factor);
}

AudioPosition AudioPosition::operator+(const AudioPosition& other) const {
  return AudioPosition(pan + other.pan, depth + other.depth);
}

bool AudioPosition::operator==(const AudioPosition& other) const {
  return pan == other.pan && depth == other.depth;
}

bool AudioPosition::operator!=(const AudioPosition& other) const {
  return !(*this == other);
}

std::ostream& operator<<(std::ostream& out, const AudioPosition& position) {
  const double values[] = {position.pan, position.depth};
  writeTuple(out, values, 2);
  return out;
}

std::istream& operator>>(std::istream& in, AudioPosition& position) {
  double values[2];
  if (readTuple(in, values, 2)) {
    position = AudioPosition(values[0], values[1]);
  }
  return in;
}

void writeXMLValue(std::ostream& out, const AudioPosition& position) {
  out << position;
}

}  // namespace KelMediaLib
