#pragma once

#include "core/KelObject.h"
#include "values/ValueText.h"

#include <istream>
#include <ostream>
#include <vector>

namespace KelMediaLib {

/// An axis-parallel rectangle: left edge `x`, edge `y` in whatever direction
/// its builder uses, and extents `width` and `height`, which may be negative.
template <class T>
class Rect : public KelObject {
 public:
  /// The rectangle with all four fields zero.
  Rect() : x(), y(), width(), height() {}
  Rect(T x_, T y_, T width_, T height_) : x(x_), y(y_), width(width_), height(height_) {}

  bool operator==(const Rect& other) const {
    return x == other.x && y == other.y && width == other.width && height == other.height;
  }
  bool operator!=(const Rect& other) const { return !(*this == other); }

  T x;
  T y;
  T width;
  T height;
};

/// Writes "(x,y,width,height)" with numbers that read back bit for bit.
template <class T>
std::ostream& operator<<(std::ostream& out, const Rect<T>& rect) {
  const T values[] = {rect.x, rect.y, rect.width, rect.height};
  writeTuple(out, values, 4);
  return out;
}

/// Reads a separator and then four times a number and a separator, into x,
/// y, width and height. Separators are not checked, and each field is stored
/// as soon as it is read, so a failed read leaves the earlier fields changed.
template <class T>
std::istream& operator>>(std::istream& in, Rect<T>& rect) {
  char separator = 0;
  in >> separator >> rect.x >> separator >> rect.y >> separator >> rect.width >> separator >>
      rect.height >> separator;
  return in;
}

template <class T>
void writeXMLValue(std::ostream& out, const Rect<T>& rect) {
  out << rect;
}

/// Writes a list of rectangles as "[(x,y,w,h),(x,y,w,h)]", "[]" when empty.
std::ostream& operator<<(std::ostream& out, const std::vector<Rect<float>>& rects);
/// Reads the form written above; the brackets and commas between rectangles
/// are checked. The list is replaced only when the whole form was read.
std::istream& operator>>(std::istream& in, std::vector<Rect<float>>& rects);
void writeXMLValue(std::ostream& out, const std::vector<Rect<float>>& rects);

}  // namespace KelMediaLib
