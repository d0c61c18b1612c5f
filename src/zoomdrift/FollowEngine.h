#pragma once

#include "zoomdrift/Zoomdrift.h"

#include <boost/shared_ptr.hpp>

#include <memory>
#include <vector>

namespace ZoomdriftNS {

/// The library's automatic zoom engine: the view follows the user's activity.
/// It zooms in where the user clicks, types or brings a window to the front,
/// keeps one rectangle while the activity stays in it, pans to keep the
/// cursor in view while zoomed, and goes back to the whole recording region
/// when the activity stops or jumps across the screen. Deterministic: the
/// same metadata always gives the same key frames.
///
/// The rules, with their constants, are in docs/design.md ("Automatic
/// zoom"). Key frames are in time order, each at least the fade duration and
/// the hold time after the one before.
class FollowEngine : public Zoomdrift {
 public:
  /// The user's choices. Durations in seconds.
  struct Settings {
    /// How much a zoom enlarges, over the view of the whole region; held
    /// between 1 and 4.
    double zoom = 2.0;
    /// Time without activity after which the view goes back to the whole
    /// region.
    double idleSeconds = 3.0;
    /// Least time a view stands before the next change starts.
    double holdSeconds = 0.5;
    /// Band along each side of a zoom rectangle, as a part of its width or
    /// height, that activity and the cursor must keep out of for the
    /// rectangle to stay; from 0 up to (not including) 0.5.
    double marginFraction = 0.15;
  };

  /// Throws `ZoomdriftException` (`ZDERR_BAD_SETTING`) for a zoom that is
  /// not a number, a negative or infinite duration, or a margin out of its
  /// range.
  static boost::shared_ptr<FollowEngine> create(const Settings& settings);
  /// An engine with the default settings.
  static boost::shared_ptr<FollowEngine> create();

  /// The settings in use, the zoom held in its range.
  const Settings& settings() const { return settings_; }

  /// Throws `ZoomdriftException` for metadata it can't use: no recording
  /// region or one without area, an empty target size, a time scale that
  /// isn't above 0, a negative fade.
  std::unique_ptr<std::vector<ZD_TIME_RECT>> calcZoomdriftKeyframes(Params const& params,
                                                                    long reserved) override;
  /// The rectangle of the last key frame of the whole recording at or before
  /// `time` (the whole region before the first), with `time` as its time.
  std::unique_ptr<std::vector<ZD_TIME_RECT>> calcZoomdriftKeyframeAtTime(Params const& params,
                                                                         long long time) override;

 private:
  explicit FollowEngine(const Settings& settings);

  Settings settings_;
};

}  // namespace ZoomdriftNS
