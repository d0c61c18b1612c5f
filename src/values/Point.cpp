#include "values/Point.h"

#include "values/ValueText.h"

namespace KelMediaLib {

Point::Point() : x(0.0), y(0.0), z(0.0) {}

Point::Point(double x_, double y_, double z_) : x(x_), y(y_), z(z_) {}

Point Point::operator*(double factor) const {
  return Point(x * factor, y * factor, z * factor);
}

Point Point::operator+(const Point& other) const {
  return Point(x + other.x, y + other.y, z + other.z);
}

bool Point::operator==(const Point& other) const {
  return x == other.x && y == other.y && z == other.z;
}

bool Point::operator!=(const Point& other) const {
  return !(*this == other);
}

std::ostream& operator<<(std::ostream& out, const Point& point) {
  const double values[] = {point.x, point.y, point.z};
  writeTuple(out, values, 3);
  return out;
}

std::istream& operator>>(std::istream& in, Point& point) {
  double values[3];
  if (readTuple(in, values, 3)) {
    point = Point(values[0], values[1], values[2]);
  }
  return in;
}

void writeXMLValue(std::ostream& out, const Point& point) {
  out << point;
}

}  // namespace KelMediaLib
