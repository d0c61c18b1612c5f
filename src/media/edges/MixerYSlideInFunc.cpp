#include "media/edges/MixerYSlideInFunc.h"

#include "core/XMLText.h"

#include <ostream>

namespace KelMediaLib {

MixerYSlideInFunc::MixerYSlideInFunc(double angle, double extent)
    : MixerSlideFunc(extent), angle_(angle) {}

MixerYSlideInFunc::MixerYSlideInFunc(const MixerYSlideInFunc& other)
    : MixerSlideFunc(other), angle_(other.angle_) {}

MixerYSlideInFunc* MixerYSlideInFunc::clone() const {
  return new MixerYSlideInFunc(*this);
}

void MixerYSlideInFunc::xmlName(Options& options) const {
  writeLiteral(options.out, "MixerYSlideIn");
}

void MixerYSlideInFunc::xmlAttributes(Options& options) const {
  writeFirstXMLAttribute(options.out, "id", options.ident(*this));
  writeXMLAttribute(options.out, "angle", angle_);
}

double MixerYSlideInFunc::applyClamped(double value, double fraction) const {
  return value + extent() * (1.0 - fraction);
}

}  // namespace KelMediaLib
