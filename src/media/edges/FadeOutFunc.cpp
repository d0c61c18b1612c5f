#include "media/edges/FadeOutFunc.h"

#include "core/XMLText.h"

#include <ostream>

namespace KelMediaLib {

FadeOutFunc* FadeOutFunc::clone() const {
  return new FadeOutFunc(*this);
}

void FadeOutFunc::xmlName(Options& options) const {
  writeLiteral(options.out, "FadeOutFunc");
}

double FadeOutFunc::applyClamped(double value, double fraction) const {
  return value * (1.0 - fraction);
}

}  // namespace KelMediaLib
