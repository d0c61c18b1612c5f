#include "zoomdrift/Params.h"

namespace ZoomdriftNS {

const int ZOOMDRIFT_EVENT_MAP[4] = {0, 1, 2, 3};

Params::Params()
    : targetWidth_(0),
      targetHeight_(0),
      timeScale_(100.0),
      fadeDuration_(100),
      clipStart_(0),
      clipStop_(0),
      windows_(false) {}

Params& Params::setTargetWidth(int width) {
  targetWidth_ = width;
  return *this;
}

Params& Params::setTargetHeight(int height) {
  targetHeight_ = height;
  return *this;
}

void Params::setTimeScale(double timeScale) {
  timeScale_ = timeScale;
}

void Params::setFadeDuration(long long fadeDuration) {
  fadeDuration_ = fadeDuration;
}

void Params::setClipInterval(long long start, long long stop) {
  clipStart_ = start;
  clipStop_ = stop;
}

void Params::setWindowsFlag(bool windows) {
  windows_ = windows;
}

}  // namespace ZoomdriftNS
