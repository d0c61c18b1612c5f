#pragma once

#include "core/KelObject.h"

#include <istream>
#include <ostream>

namespace KelMediaLib {

/// A colour of four 32-bit float components, red, green, blue and alpha,
/// nominally in 0..1 (not clamped).
class Color : public KelObject {
 public:
  /// Transparent black: all components zero.
  Color();
  Color(float red_, float green_, float blue_, float alpha_);

  /// Each component times `factor`, computed in double and narrowed once.
  Color operator*(double factor) const;
  /// Component by component sum.
  Color operator+(const Color& other) const;
  bool operator==(const Color& other) const;
  bool operator!=(const Color& other) const;

  float red;
  float green;
  float blue;
  float alpha;
};

/// Writes "(r,g,b,a)" with numbers that read back bit for bit.
std::ostream& operator<<(std::ostream& out, const Color& color);
/// Reads "(r,g,b,a)"; brackets and commas are checked, and the colour is
/// only assigned when the whole form was read.
std::istream& operator>>(std::istream& in, Color& color);
void writeXMLValue(std::ostream& out, const Color& color);

}  // namespace KelMediaLib
