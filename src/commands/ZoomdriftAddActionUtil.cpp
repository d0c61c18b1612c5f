#include "commands/ZoomdriftAddActionUtil.h"

#include "actions/ActionDescription.h"
#include "actions/OrigToModified.h"
#include "actions/OrvException.h"
#include "actions/SetTransform.h"
#include "commands/AddActionCmd.h"
#include "commands/OrvMultiCommand.h"
#include "media/media/VMFile.h"
#include "zoomdrift/ZoomdriftCmdUtil.h"

#include <string>

namespace OrvMediaLib {

using ZoomdriftNS::ZoomdriftCmdUtil;

namespace {

void addRange(ActionDescription& description, const char* name, double value) {
  description.addParameterRange(
      ActionDescription::RangeDescription(name, OrigToModified(), SetTransform(), value));
}

long long startBefore(long long time, long long duration) {
  long long start = 0;
  if (__builtin_sub_overflow(time, duration, &start)) {
    throw OrvException("ZoomdriftAddActionUtil: a zoom of " + std::to_string(duration) +
                       " units ending at " + std::to_string(time) + " starts beyond the time axis");
  }
  return start;
}

}  // namespace

void ZoomdriftAddActionUtil::setScaleTranslateZoomWithRect(
    OrvMultiCommand* command, boost::shared_ptr<const ActionBin> bin,
    ZoomdriftNS::Rectangle const& rect, long long time,
    boost::shared_ptr<const KelMediaLib::VMFile> media, long long duration, float canvasWidth,
    float canvasHeight) {
  require("ZoomdriftAddActionUtil::setScaleTranslateZoomWithRect", command, "command");
  ActionDescription description(ActionDescription::CENTER_ACTION);
  double scale[3];
  double translation[3];
  ZoomdriftCmdUtil::calculateScaleTranslateWithRectangle(rect, canvasWidth, canvasHeight, media,
                                                         scale, translation);
  addRange(description, "scale0", scale[0]);
  addRange(description, "scale1", scale[1]);
  addRange(description, "translation0", translation[0]);
  addRange(description, "translation1", translation[1]);
  addRange(description, "translation2", translation[2]);
  // A zoom shows the picture upright and whole, whatever it had before.
  for (const char* name : {"rotation0", "rotation1", "rotation2", "geometryCrop0", "geometryCrop1",
                           "geometryCrop2", "geometryCrop3"}) {
    addRange(description, name, 0.0);
  }
  command->orvExecute(AddActionCmd::create(media, bin, description, time, duration));
}

void ZoomdriftAddActionUtil::setScaleTranslateZoomWithZoomdriftKeyframes(
    OrvMultiCommand* command, boost::shared_ptr<const ActionBin> bin, KeyFrames keyFrames,
    boost::shared_ptr<const KelMediaLib::VMFile> media, long long duration, float canvasWidth,
    float canvasHeight) {
  require("ZoomdriftAddActionUtil::setScaleTranslateZoomWithZoomdriftKeyframes", media.get(),
          "media");
  if (!keyFrames) return;
  for (const ZoomdriftNS::ZD_TIME_RECT& keyFrame : *keyFrames) {
    // The end is converted, not the start, so that the zoom stands exactly at
    // the key frame's moment at any speed of the media.
    const long long end = ZoomdriftCmdUtil::editTime(*media, keyFrame.time);
    setScaleTranslateZoomWithRect(command, bin, keyFrame.rect, startBefore(end, duration), media,
                                  duration, canvasWidth, canvasHeight);
  }
}

void ZoomdriftAddActionUtil::setSrcCropWithRect(OrvMultiCommand* command,
                                                boost::shared_ptr<const ActionBin> bin,
                                                ZoomdriftNS::ZD_TIME_RECT const& rect,
                                                long long time,
                                                boost::shared_ptr<const KelMediaLib::VMFile> media,
                                                long long duration) {
  require("ZoomdriftAddActionUtil::setSrcCropWithRect", command, "command");
  require("ZoomdriftAddActionUtil::setSrcCropWithRect", media.get(), "media");
  const double width = static_cast<double>(media->width());
  const double height = static_cast<double>(media->height());
  ActionDescription description(ActionDescription::CENTER_ACTION);
  addRange(description, "sourceCrop0", ZoomdriftCmdUtil::calcLeftTrim(rect, width, height));
  addRange(description, "sourceCrop1", ZoomdriftCmdUtil::calcTopTrim(rect, width, height));
  addRange(description, "sourceCrop2", ZoomdriftCmdUtil::calcRightTrim(rect, width, height));
  addRange(description, "sourceCrop3", ZoomdriftCmdUtil::calcBottomTrim(rect, width, height));
  command->orvExecute(
      AddActionCmd::create(media, bin, description, startBefore(time, duration), duration));
}

void ZoomdriftAddActionUtil::setSrcCropWithZoomdriftKeyframes(
    OrvMultiCommand* command, boost::shared_ptr<const ActionBin> bin, KeyFrames keyFrames,
    boost::shared_ptr<const KelMediaLib::VMFile> media, long long duration) {
  if (!keyFrames) return;
  for (const ZoomdriftNS::ZD_TIME_RECT& keyFrame : *keyFrames) {
    setSrcCropWithRect(command, bin, keyFrame, keyFrame.time, media, duration);
  }
}

void ZoomdriftAddActionUtil::require(const char* who, const void* argument, const char* what) {
  if (!argument) throw OrvException(std::string(who) + ": no " + what + " given");
}

ZoomdriftNS::Params ZoomdriftAddActionUtil::genParams(
    boost::shared_ptr<const KelMediaLib::VMFile> media, long long fadeDuration, int canvasWidth,
    int canvasHeight) {
  ZoomdriftCmdUtil::assertZoomdriftPossible(media);
  ZoomdriftNS::Params params;
  ZoomdriftCmdUtil::genZoomdriftParams(media, &params, fadeDuration);
  params.setTargetWidth(canvasWidth).setTargetHeight(canvasHeight);
  return params;
}

}  // namespace OrvMediaLib
