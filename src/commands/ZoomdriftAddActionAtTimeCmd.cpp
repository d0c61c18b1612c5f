#include "commands/ZoomdriftAddActionAtTimeCmd.h"

#include "actions/OrvException.h"
#include "commands/ZoomdriftAddActionUtil.h"
#include "zoomdrift/Zoomdrift.h"
#include "zoomdrift/ZoomdriftCmdUtil.h"
#include "zoomdrift/ZoomdriftException.h"

#include <cstdio>
#include <string>

namespace OrvMediaLib {

boost::shared_ptr<ZoomdriftAddActionAtTimeCmd> ZoomdriftAddActionAtTimeCmd::create(
    boost::shared_ptr<const KelMediaLib::VMFile> media,
    boost::shared_ptr<ZoomdriftNS::Zoomdrift> engine, long long time, long long fadeDuration,
    boost::shared_ptr<const ActionBin> actionBin, int canvasWidth, int canvasHeight) {
  return boost::shared_ptr<ZoomdriftAddActionAtTimeCmd>(new ZoomdriftAddActionAtTimeCmd(
      media, engine, time, fadeDuration, actionBin, canvasWidth, canvasHeight));
}

ZoomdriftAddActionAtTimeCmd::ZoomdriftAddActionAtTimeCmd(
    boost::shared_ptr<const KelMediaLib::VMFile> media,
    boost::shared_ptr<ZoomdriftNS::Zoomdrift> engine, long long time, long long fadeDuration,
    boost::shared_ptr<const ActionBin> actionBin, int canvasWidth, int canvasHeight)
    : media_(media),
      engine_(engine),
      time_(time),
      fadeDuration_(fadeDuration),
      actionBin_(actionBin),
      canvasWidth_(canvasWidth),
      canvasHeight_(canvasHeight) {
  ZoomdriftAddActionUtil::require("ZoomdriftAddActionAtTimeCmd", media_.get(), "media");
  ZoomdriftAddActionUtil::require("ZoomdriftAddActionAtTimeCmd", engine_.get(), "engine");
  ZoomdriftAddActionUtil::require("ZoomdriftAddActionAtTimeCmd", actionBin_.get(), "action bin");
}

void ZoomdriftAddActionAtTimeCmd::executeCommands(KelMediaLib::CommandHandler const*) {
  const ZoomdriftNS::Params params =
      ZoomdriftAddActionUtil::genParams(media_, fadeDuration_, canvasWidth_, canvasHeight_);
  long long arrival = 0;
  if (__builtin_add_overflow(time_, fadeDuration_, &arrival)) {
    throw OrvException("ZoomdriftAddActionAtTimeCmd: a zoom at " + std::to_string(time_) + " of " +
                       std::to_string(fadeDuration_) + " units ends beyond the time axis");
  }
  try {
    // The engine counts in recording time, the action in the media's own.
    const std::unique_ptr<std::vector<ZoomdriftNS::ZD_TIME_RECT>> keyFrames =
        engine_->calcZoomdriftKeyframeAtTime(
            params, ZoomdriftNS::ZoomdriftCmdUtil::recordingTime(*media_, arrival));
    if (!keyFrames || keyFrames->empty()) return;
    ZoomdriftAddActionUtil::setScaleTranslateZoomWithRect(
        this, actionBin_, keyFrames->front().rect, time_, media_, fadeDuration_,
        static_cast<float>(canvasWidth_), static_cast<float>(canvasHeight_));
  } catch (const ZoomdriftNS::ZoomdriftException& e) {
    std::printf("ZoomdriftException while calling calcZoomdriftKeyframeAtTime: %s\n", e.what());
  }
}

ZoomdriftAddActionAtTimeCmd* ZoomdriftAddActionAtTimeCmd::clone() const {
  return new ZoomdriftAddActionAtTimeCmd(*this);
}

std::string ZoomdriftAddActionAtTimeCmd::description() const {
  return "ZoomdriftAddActionAtTimeCmd";
}

}  // namespace OrvMediaLib
