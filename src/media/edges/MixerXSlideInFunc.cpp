#include "media/edges/MixerXSlideInFunc.h"

#include "core/XMLText.h"

#include <ostream>

namespace KelMediaLib {

MixerXSlideInFunc::MixerXSlideInFunc(double extent) : MixerSlideFunc(extent) {}

MixerXSlideInFunc* MixerXSlideInFunc::clone() const {
  return new MixerXSlideInFunc(*this);
}

void MixerXSlideInFunc::xmlName(Options& options) const {
  writeLiteral(options.out, "MixerXSlideIn");
}

double MixerXSlideInFunc::applyClamped(double value, double fraction) const {
  return value - extent() * (1.0 - fraction);
}

}  // namespace KelMediaLib
