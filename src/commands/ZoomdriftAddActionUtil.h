#pragma once

#include "zoomdrift/Params.h"

#include <boost/shared_ptr.hpp>

#include <memory>
#include <vector>

namespace KelMediaLib {
class VMFile;
}

namespace OrvMediaLib {

class ActionBin;
class OrvMultiCommand;

/// Turns an automatic zoom engine's rectangles into actions on a screen
/// recording, each added by an `AddActionCmd` run as a member of the given
/// group. `time` and `duration` are edit times (the media's own time); a key
/// frame's time is a recording time. What `AddActionCmd` and the project
/// refuse (a collision in the bin) passes through.
class ZoomdriftAddActionUtil {
 public:
  typedef std::unique_ptr<std::vector<ZoomdriftNS::ZD_TIME_RECT>> KeyFrames;

  /// An action over (`time`, `duration`) whose left side keeps the media's
  /// values and whose right side makes `rect` fill the canvas: "scale0",
  /// "scale1", "translation0".."translation2" as
  /// `ZoomdriftCmdUtil::calculateScaleTranslateWithRectangle` gives them,
  /// and rotation and geometry crop at 0.
  static void setScaleTranslateZoomWithRect(OrvMultiCommand* command,
                                            boost::shared_ptr<const ActionBin> bin,
                                            ZoomdriftNS::Rectangle const& rect, long long time,
                                            boost::shared_ptr<const KelMediaLib::VMFile> media,
                                            long long duration, float canvasWidth,
                                            float canvasHeight);

  /// A zoom action for each key frame in order, ending at the key frame's
  /// edit time: the zoom stands at the moment that the engine named, and
  /// the `duration` of the change runs ahead of it. A null vector adds none.
  static void setScaleTranslateZoomWithZoomdriftKeyframes(
      OrvMultiCommand* command, boost::shared_ptr<const ActionBin> bin, KeyFrames keyFrames,
      boost::shared_ptr<const KelMediaLib::VMFile> media, long long duration, float canvasWidth,
      float canvasHeight);

  /// An action over (`time - duration`, `duration`) that crops the source
  /// down to `rect`: "sourceCrop0".."sourceCrop3" (left, top, right,
  /// bottom). `time` is taken as an edit time as it stands.
  static void setSrcCropWithRect(OrvMultiCommand* command, boost::shared_ptr<const ActionBin> bin,
                                 ZoomdriftNS::ZD_TIME_RECT const& rect, long long time,
                                 boost::shared_ptr<const KelMediaLib::VMFile> media,
                                 long long duration);

  /// A crop action for each key frame in order, at the key frame's time. A
  /// null vector adds none.
  static void setSrcCropWithZoomdriftKeyframes(OrvMultiCommand* command,
                                               boost::shared_ptr<const ActionBin> bin,
                                               KeyFrames keyFrames,
                                               boost::shared_ptr<const KelMediaLib::VMFile> media,
                                               long long duration);

  /// Throws `OrvException` "`who`: no `what` given" when `argument` is null:
  /// the check of the zoom commands' arguments.
  static void require(const char* who, const void* argument, const char* what);

  /// The engine's input for `media`: `ZoomdriftCmdUtil::genZoomdriftParams`
  /// with the canvas as the target. Throws `KelMediaLibException` (of
  /// `ZoomdriftCmdUtil::assertZoomdriftPossible`) for a media without screen
  /// metadata.
  static ZoomdriftNS::Params genParams(boost::shared_ptr<const KelMediaLib::VMFile> media,
                                       long long fadeDuration, int canvasWidth, int canvasHeight);
};

}  // namespace OrvMediaLib
