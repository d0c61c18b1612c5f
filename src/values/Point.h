#pragma once

#include "core/KelObject.h"

#include <istream>
#include <ostream>

namespace KelMediaLib {

/// A point or vector in three dimensions (positions, scale and translation
/// triples).
class Point : public KelObject {
 public:
  /// The origin.
  Point();
  Point(double x_, double y_, double z_);

  /// Each coordinate times `factor`.
  Point operator*(double factor) const;
  /// Coordinate by coordinate sum.
  Point operator+(const Point& other) const;
  bool operator==(const Point& other) const;
  bool operator!=(const Point& other) const;

  double x;
  double y;
  double z;
};

/// Writes "(x,y,z)" with numbers that read back bit for bit.
std::ostream& operator<<(std::ostream& out, const Point& point);
/// Reads "(x,y,z)"; brackets and commas are checked, and the point is only
/// assigned when the whole form was read.
std::istream& operator>>(std::istream& in, Point& point);
void writeXMLValue(std::ostream& out, const Point& point);

}  // namespace KelMediaLib
