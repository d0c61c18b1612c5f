#include "media/edges/MixerXSlideOutFunc.h"

#include "core/XMLText.h"

#include <ostream>

namespace KelMediaLib {

MixerXSlideOutFunc::MixerXSlideOutFunc(double extent) : MixerSlideFunc(extent) {}

MixerXSlideOutFunc* MixerXSlideOutFunc::clone() const {
  return new MixerXSlideOutFunc(*this);
}

void MixerXSlideOutFunc::xmlName(Options& options) const {
  writeLiteral(options.out, "MixerXSlideOut");
}

double MixerXSlideOutFunc::applyClamped(double value, double fraction) const {
  return value + extent() * fraction;
}

}  // namespace KelMediaLib
