#pragma once

#include "zoomdrift/Params.h"

#include <boost/shared_ptr.hpp>

namespace KelMediaLib {
class VMFile;
}

namespace ZoomdriftNS {

/// The bridge between a screen recording's media and an automatic zoom
/// engine: the engine's input gathered from the media's metadata, and the
/// arithmetic that turns an engine's rectangle into crops, scale and
/// translation.
///
/// Time axes: a recording time is the media's parameter time (its source time
/// in edit units); an edit time is the media's own time, what an action
/// command takes. They differ by the media's speed scalar.
class ZoomdriftCmdUtil {
 public:
  /// Throws `KelMediaLibException` unless `media` carries screen metadata.
  static void assertZoomdriftPossible(boost::shared_ptr<const KelMediaLib::VMFile> media);

  /// Fills `params` from `media` and its metadata (which must be there, see
  /// `assertZoomdriftPossible`): the target size as the media's scaled size,
  /// the project's edit rate as the time scale, the front windows, cursor
  /// actions (one record per bit of a mask), cursor locations and changed
  /// rectangles in the order of their times, the media's rectangle as the one
  /// recording region, the fade and the stretch of the recording shown.
  /// A metadata parameter at rest (its default value at time 0) gives no
  /// record. `fadeDuration` is in edit time; `params` gets it in recording
  /// time.
  static void genZoomdriftParams(boost::shared_ptr<const KelMediaLib::VMFile> media, Params* params,
                                 long long fadeDuration);

  /// What to crop away from a `width` by `height` picture so that `rect`
  /// remains: from the left, top, right and bottom.
  static double calcLeftTrim(ZD_TIME_RECT const& rect, double width, double height);
  static double calcTopTrim(ZD_TIME_RECT const& rect, double width, double height);
  static double calcRightTrim(ZD_TIME_RECT const& rect, double width, double height);
  static double calcBottomTrim(ZD_TIME_RECT const& rect, double width, double height);

  /// The scale and translation (x, y, z each) that make `rect` of the media
  /// fill a canvas of the given size, keeping its aspect: the whole rectangle
  /// fits. The canvas's y axis points up, the rectangle's down. A rectangle
  /// without width or height gives an infinite scale.
  static void calculateScaleTranslateWithRectangle(
      Rectangle const& rect, float canvasWidth, float canvasHeight,
      boost::shared_ptr<const KelMediaLib::VMFile> media, double* scale, double* translation);

  /// The edit time at which `recordingTime` of `media` shows, and back. Both
  /// round to the nearest unit, ties away from zero; they throw `OrvException`
  /// for a time that a 64-bit count can't hold.
  static long long editTime(const KelMediaLib::VMFile& media, long long recordingTime);
  static long long recordingTime(const KelMediaLib::VMFile& media, long long editTime);
};

}  // namespace ZoomdriftNS
