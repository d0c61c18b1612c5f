#include "commands/ReplaceActionWithZoomdriftAtTimeCmd.h"

#include "actions/Action.h"
#include "commands/RemoveActionCmd.h"
#include "commands/ZoomdriftAddActionAtTimeCmd.h"
#include "commands/ZoomdriftAddActionUtil.h"
#include "core/Attribute.h"
#include "media/media/VMFile.h"
#include "media/metadata/ScreenMetaData.h"
#include "zoomdrift/ZoomdriftCmdUtil.h"

namespace OrvMediaLib {

boost::shared_ptr<ReplaceActionWithZoomdriftAtTimeCmd> ReplaceActionWithZoomdriftAtTimeCmd::create(
    boost::shared_ptr<const Action> action, boost::shared_ptr<const KelMediaLib::VMFile> media,
    boost::shared_ptr<ZoomdriftNS::Zoomdrift> engine, boost::shared_ptr<const ActionBin> actionBin,
    int canvasWidth, int canvasHeight) {
  return boost::shared_ptr<ReplaceActionWithZoomdriftAtTimeCmd>(
      new ReplaceActionWithZoomdriftAtTimeCmd(action, media, engine, actionBin, canvasWidth,
                                              canvasHeight));
}

ReplaceActionWithZoomdriftAtTimeCmd::ReplaceActionWithZoomdriftAtTimeCmd(
    boost::shared_ptr<const Action> action, boost::shared_ptr<const KelMediaLib::VMFile> media,
    boost::shared_ptr<ZoomdriftNS::Zoomdrift> engine, boost::shared_ptr<const ActionBin> actionBin,
    int canvasWidth, int canvasHeight)
    : action_(action),
      media_(media),
      engine_(engine),
      actionBin_(actionBin),
      canvasWidth_(canvasWidth),
      canvasHeight_(canvasHeight) {
  const char* const who = "ReplaceActionWithZoomdriftAtTimeCmd";
  ZoomdriftAddActionUtil::require(who, action_.get(), "action");
  ZoomdriftAddActionUtil::require(who, engine_.get(), "engine");
  ZoomdriftAddActionUtil::require(who, actionBin_.get(), "action bin");
}

void ReplaceActionWithZoomdriftAtTimeCmd::executeCommands(KelMediaLib::CommandHandler const*) {
  if (!media_) return;
  // Read under the attribute's lock.
  const boost::shared_ptr<const KelMediaLib::ScreenMetaData> metaData =
      media_->screenMetaData()->value();
  if (!metaData || !metaData->hasContent()) return;
  // The action's range is on the media's parameter axis, the recording's.
  const KelMediaLib::Range<long long> range = action_->timeRange();
  const long long time = ZoomdriftNS::ZoomdriftCmdUtil::editTime(*media_, range.start);
  orvExecute(RemoveActionCmd::create(action_));
  orvExecute(ZoomdriftAddActionAtTimeCmd::create(media_, engine_, time, range.duration, actionBin_,
                                                 canvasWidth_, canvasHeight_));
}

ReplaceActionWithZoomdriftAtTimeCmd* ReplaceActionWithZoomdriftAtTimeCmd::clone() const {
  return new ReplaceActionWithZoomdriftAtTimeCmd(*this);
}

std::string ReplaceActionWithZoomdriftAtTimeCmd::description() const {
  return "ZoomdriftAddActionAtTimeCmd";
}

}  // namespace OrvMediaLib
