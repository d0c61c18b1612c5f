#include "commands/ZoomdriftAddActionsWithKeyFramesCmd.h"

#include "commands/ZoomdriftAddActionUtil.h"
#include "zoomdrift/ZoomdriftCmdUtil.h"

#include <utility>

namespace OrvMediaLib {

boost::shared_ptr<ZoomdriftAddActionsWithKeyFramesCmd> ZoomdriftAddActionsWithKeyFramesCmd::create(
    boost::shared_ptr<const KelMediaLib::VMFile> media, KeyFrames keyFrames, long long fadeDuration,
    boost::shared_ptr<const ActionBin> actionBin, int canvasWidth, int canvasHeight) {
  return boost::shared_ptr<ZoomdriftAddActionsWithKeyFramesCmd>(
      new ZoomdriftAddActionsWithKeyFramesCmd(media, std::move(keyFrames), fadeDuration, actionBin,
                                              canvasWidth, canvasHeight));
}

ZoomdriftAddActionsWithKeyFramesCmd::ZoomdriftAddActionsWithKeyFramesCmd(
    boost::shared_ptr<const KelMediaLib::VMFile> media, KeyFrames keyFrames, long long fadeDuration,
    boost::shared_ptr<const ActionBin> actionBin, int canvasWidth, int canvasHeight)
    : media_(media),
      keyFrames_(std::move(keyFrames)),
      fadeDuration_(fadeDuration),
      actionBin_(actionBin),
      canvasWidth_(canvasWidth),
      canvasHeight_(canvasHeight) {
  const char* const who = "ZoomdriftAddActionsWithKeyFramesCmd";
  ZoomdriftAddActionUtil::require(who, media_.get(), "media");
  ZoomdriftAddActionUtil::require(who, actionBin_.get(), "action bin");
}

ZoomdriftAddActionsWithKeyFramesCmd::ZoomdriftAddActionsWithKeyFramesCmd(
    const ZoomdriftAddActionsWithKeyFramesCmd& other)
    : OrvMultiCommand(other),
      media_(other.media_),
      keyFrames_(other.keyFrames_ ? new std::vector<ZoomdriftNS::ZD_TIME_RECT>(*other.keyFrames_)
                                  : nullptr),
      fadeDuration_(other.fadeDuration_),
      actionBin_(other.actionBin_),
      canvasWidth_(other.canvasWidth_),
      canvasHeight_(other.canvasHeight_) {}

void ZoomdriftAddActionsWithKeyFramesCmd::executeCommands(KelMediaLib::CommandHandler const*) {
  ZoomdriftNS::ZoomdriftCmdUtil::assertZoomdriftPossible(media_);
  ZoomdriftAddActionUtil::setScaleTranslateZoomWithZoomdriftKeyframes(
      this, actionBin_, std::move(keyFrames_), media_, fadeDuration_,
      static_cast<float>(canvasWidth_), static_cast<float>(canvasHeight_));
}

ZoomdriftAddActionsWithKeyFramesCmd* ZoomdriftAddActionsWithKeyFramesCmd::clone() const {
  return new ZoomdriftAddActionsWithKeyFramesCmd(*this);
}

std::string ZoomdriftAddActionsWithKeyFramesCmd::description() const {
  return "ZoomdriftAddActionsWithKeyFramesCmd";
}

}  // namespace OrvMediaLib
