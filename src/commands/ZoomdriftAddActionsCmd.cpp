#include "commands/ZoomdriftAddActionsCmd.h"

#include "commands/ZoomdriftAddActionUtil.h"
#include "zoomdrift/Zoomdrift.h"

namespace OrvMediaLib {

boost::shared_ptr<ZoomdriftAddActionsCmd> ZoomdriftAddActionsCmd::create(
    boost::shared_ptr<const KelMediaLib::VMFile> media,
    boost::shared_ptr<ZoomdriftNS::Zoomdrift> engine, long long fadeDuration,
    boost::shared_ptr<const ActionBin> actionBin, int canvasWidth, int canvasHeight) {
  return boost::shared_ptr<ZoomdriftAddActionsCmd>(new ZoomdriftAddActionsCmd(
      media, engine, fadeDuration, actionBin, canvasWidth, canvasHeight));
}

ZoomdriftAddActionsCmd::ZoomdriftAddActionsCmd(boost::shared_ptr<const KelMediaLib::VMFile> media,
                                               boost::shared_ptr<ZoomdriftNS::Zoomdrift> engine,
                                               long long fadeDuration,
                                               boost::shared_ptr<const ActionBin> actionBin,
                                               int canvasWidth, int canvasHeight)
    : media_(media),
      engine_(engine),
      fadeDuration_(fadeDuration),
      actionBin_(actionBin),
      canvasWidth_(canvasWidth),
      canvasHeight_(canvasHeight) {
  ZoomdriftAddActionUtil::require("ZoomdriftAddActionsCmd", media_.get(), "media");
  ZoomdriftAddActionUtil::require("ZoomdriftAddActionsCmd", engine_.get(), "engine");
  ZoomdriftAddActionUtil::require("ZoomdriftAddActionsCmd", actionBin_.get(), "action bin");
}

void ZoomdriftAddActionsCmd::executeCommands(KelMediaLib::CommandHandler const*) {
  const ZoomdriftNS::Params params =
      ZoomdriftAddActionUtil::genParams(media_, fadeDuration_, canvasWidth_, canvasHeight_);
  ZoomdriftAddActionUtil::setScaleTranslateZoomWithZoomdriftKeyframes(
      this, actionBin_, engine_->calcZoomdriftKeyframes(params, 0), media_, fadeDuration_,
      static_cast<float>(canvasWidth_), static_cast<float>(canvasHeight_));
}

ZoomdriftAddActionsCmd* ZoomdriftAddActionsCmd::clone() const {
  return new ZoomdriftAddActionsCmd(*this);
}

std::string ZoomdriftAddActionsCmd::description() const {
  return "ZoomdriftAddActionsCmd";
}

}  // namespace OrvMediaLib
