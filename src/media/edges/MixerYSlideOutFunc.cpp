#include "media/edges/MixerYSlideOutFunc.h"

#include "core/XMLText.h"

#include <ostream>

namespace KelMediaLib {

MixerYSlideOutFunc::MixerYSlideOutFunc(double extent) : MixerSlideFunc(extent) {}

MixerYSlideOutFunc* MixerYSlideOutFunc::clone() const {
  return new MixerYSlideOutFunc(*this);
}

void MixerYSlideOutFunc::xmlName(Options& options) const {
  writeLiteral(options.out, "MixerYSlideOut");
}

double MixerYSlideOutFunc::applyClamped(double value, double fraction) const {
  return value - extent() * fraction;
}

}  // namespace KelMediaLib
