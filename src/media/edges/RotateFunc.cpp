#include "media/edges/RotateFunc.h"

#include "core/XMLText.h"

#include <ostream>

namespace KelMediaLib {

RotateFunc::RotateFunc(int numRotations) : numRotations_(numRotations) {}

RotateFunc::RotateFunc(const RotateFunc& other)
    : EdgeModFunc(other), numRotations_(other.numRotations_) {}

RotateFunc* RotateFunc::clone() const {
  return new RotateFunc(*this);
}

void RotateFunc::xmlName(Options& options) const {
  writeLiteral(options.out, "Rotate");
}

void RotateFunc::xmlAttributes(Options& options) const {
  writeFirstXMLAttribute(options.out, "id", options.ident(*this));
  writeXMLAttribute(options.out, "numRotations", numRotations_);
}

double RotateFunc::applyClamped(double value, double fraction) const {
  return value + static_cast<double>(numRotations_) * 360.0 * fraction;
}

}  // namespace KelMediaLib
