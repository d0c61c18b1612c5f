#include "media/edges/MixerSlideFunc.h"

#include "core/KelMediaLibException.h"

#include <cmath>

namespace KelMediaLib {

namespace {

double checkedExtent(double extent) {
  if (!std::isfinite(extent) || extent < 0) {
    throw KelMediaLibException("a mixer slide can't move by an extent of " +
                               std::to_string(extent));
  }
  return extent;
}

}  // namespace

MixerSlideFunc::MixerSlideFunc(double extent) : extent_(checkedExtent(extent)) {}

void MixerSlideFunc::setExtent(double extent) { extent_ = checkedExtent(extent); }

}  // namespace KelMediaLib
