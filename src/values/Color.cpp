#include "values/Color.h"

#include "values/ValueText.h"

namespace KelMediaLib {

namespace {

float scaled(float component, double factor) {
  return static_cast<float>(component * factor);
}

}  // namespace

Color::Color() : red(0.0f), green(0.0f), blue(0.0f), alpha(0.0f) {}

Color::Color(float red_, float green_, float blue_, float alpha_)
    : red(red_), green(green_), blue(blue_), alpha(alpha_) {}

Color Color::operator*(double factor) const {
  return Color(scaled(red, factor), scaled(green, factor), scaled(blue, factor),
               scaled(alpha, factor));
}

Color Color::operator+(const Color& other) const {
  return Color(red + other.red, green + other.green, blue + other.blue, alpha + other.alpha);
}

bool Color::operator==(const Color& other) const {
  return red == other.red && green == other.green && blue == other.blue && alpha == other.alpha;
}

bool Color::operator!=(const Color& other) const {
  return !(*this == other);
}

std::ostream& operator<<(std::ostream& out, const Color& color) {
  const float values[] = {color.red, color.green, color.blue, color.alpha};
  writeTuple(out, values, 4);
  return out;
}

std::istream& operator>>(std::istream& in, Color& color) {
  float values[4];
  if (readTuple(in, values, 4)) {
    color = Color(values[0], values[1], values[2], values[3]);
  }
  return in;
}

void writeXMLValue(std::ostream& out, const Color& color) {
  out << color;
}

}  // namespace KelMediaLib
