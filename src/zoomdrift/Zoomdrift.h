#pragma once

#include "zoomdrift/Params.h"

#include <memory>
#include <vector>

namespace ZoomdriftNS {

/// An automatic zoom engine: it reads a recording's metadata and names the
/// moments at which the view must stand on a rectangle of the screen. Held by
/// shared pointer; the commands that apply automatic zoom take one.
///
/// Each key frame's time is a recording time (`Params::timeScale()` units a
/// second), the moment at which its rectangle fills the view; the change
/// towards it runs during the fade before. Rectangles are in the
/// recording's pixels, origin at the top left.
class Zoomdrift {
 public:
  virtual ~Zoomdrift();

  /// All key frames of the whole recording, in time order. `reserved` is 0:
  /// the library passes no options. May throw `ZoomdriftException`.
  virtual std::unique_ptr<std::vector<ZD_TIME_RECT>> calcZoomdriftKeyframes(Params const& params,
                                                                            long reserved) = 0;

  /// The key frame for one instant: a vector whose first element holds the
  /// rectangle in force at `time`. May throw `ZoomdriftException`.
  virtual std::unique_ptr<std::vector<ZD_TIME_RECT>> calcZoomdriftKeyframeAtTime(
      Params const& params, long long time) = 0;
};

}  // namespace ZoomdriftNS
