#include "commands/MergeActionCmd.h"

#include "actions/Action.h"
#include "actions/OrvException.h"
#include "actions/ParameterRange.h"
#include "actions/ParameterRangeCreator.h"
#include "commands/AddParameterRangeCmd.h"
#include "commands/MergeActionCmdCollisionStrategy.h"
#include "media/media/Media.h"

#include <boost/make_shared.hpp>

#include <vector>

namespace OrvMediaLib {

namespace {

typedef std::vector<boost::shared_ptr<ParameterRange>> RangeList;

bool actionContainsParameterRangeForParamAndRange(
    const boost::shared_ptr<const Action>& action,
    const boost::shared_ptr<const KelMediaLib::Parameter<double>>& parameter,
    const KelMediaLib::Range<long long>& timeRange) {
  const boost::shared_ptr<ParameterRangeList> ranges = action->parameterRanges();
  for (const boost::shared_ptr<ParameterRange>& range : *ranges) {
    const KelMediaLib::Range<long long> held = range->timeRange();
    if (range->parameter() == parameter && held.start == timeRange.start &&
        held.duration == timeRange.duration) {
      return true;
    }
  }
  return false;
}

/// Makes every described range over the action's stretch, before anything
/// changes, and sorts them into new ranges and colliding ones.
void genAddAndMergeRanges(const boost::shared_ptr<const KelMediaLib::Media>& media,
                          const ActionDescription& description,
                          const boost::shared_ptr<const Action>& action, RangeList& toAdd,
                          RangeList& toMerge) {
  for (const ActionDescription::RangeDescription& rangeDescription :
       description.rangeDescriptions()) {
    const boost::shared_ptr<ParameterRange> range =
        boost::make_shared<ParameterRange>(ParameterRangeCreator::createParamRange(
            media, rangeDescription, action->parametricTimeRange()));
    if (actionContainsParameterRangeForParamAndRange(action, range->parameter(),
                                                     range->timeRange())) {
      toMerge.push_back(range);
    } else {
      toAdd.push_back(range);
    }
  }
}

}  // namespace

boost::shared_ptr<MergeActionCmd> MergeActionCmd::create(
    boost::shared_ptr<const KelMediaLib::Media> media, const ActionDescription& description,
    boost::shared_ptr<const Action> action, MergeActionCmdCollisionStrategy& strategy) {
  return boost::shared_ptr<MergeActionCmd>(
      new MergeActionCmd(media, description, action, strategy));
}

boost::shared_ptr<MergeActionCmd> MergeActionCmd::create(
    boost::shared_ptr<const KelMediaLib::Media> media, const ActionDescription& description,
    boost::shared_ptr<const Action> action) {
  const std::unique_ptr<MergeActionCmdCollisionStrategy> strategy(
      MergeActionCmdCollisionStrategy::create());
  return create(media, description, action, *strategy);
}

MergeActionCmd::MergeActionCmd(boost::shared_ptr<const KelMediaLib::Media> media,
                               const ActionDescription& description,
                               boost::shared_ptr<const Action> action,
                               MergeActionCmdCollisionStrategy& strategy)
    : media_(media), description_(description), action_(action), strategy_(strategy.clone()) {
  if (!media_) {
    throw OrvException("MergeActionCmd: no media given");
  }
  if (!action_) {
    throw OrvException("MergeActionCmd: no action given");
  }
  if (!strategy_) {
    throw OrvException("MergeActionCmd: the collision strategy gave no clone");
  }
}

MergeActionCmd::~MergeActionCmd() = default;

void MergeActionCmd::executeCommands(KelMediaLib::CommandHandler const*) {
  RangeList toAdd;
  RangeList toMerge;
  genAddAndMergeRanges(media_, description_, action_, toAdd, toMerge);
  for (const boost::shared_ptr<ParameterRange>& range : toAdd) {
    orvExecute(AddParameterRangeCmd::create(action_, range));
  }
  for (const boost::shared_ptr<ParameterRange>& range : toMerge) {
    strategy_->execute(this, range, action_);
  }
}

}  // namespace OrvMediaLib
