#include "commands/MergeActionCmdCollisionStrategy.h"

#include "actions/Action.h"
#include "actions/ParameterRange.h"
#include "commands/AddParameterRangeCmd.h"
#include "commands/OrvMultiCommand.h"
#include "commands/RemoveParameterRangeCmd.h"
#include "values/Parameter.h"

namespace OrvMediaLib {

namespace {

/// The action's first range on a parameter named as `range`'s; null if none.
/// Only the name counts, not the parameter object nor the time, so this may
/// be another range on that parameter than the one that collided.
boost::shared_ptr<ParameterRange> findRangetoRemove(
    const boost::shared_ptr<const Action>& action, const boost::shared_ptr<ParameterRange>& range) {
  const std::string& name = range->parameter()->name();
  const boost::shared_ptr<ParameterRangeList> ranges = action->parameterRanges();
  for (const boost::shared_ptr<ParameterRange>& held : *ranges) {
    if (held->parameter()->name() == name) {
      return held;
    }
  }
  return boost::shared_ptr<ParameterRange>();
}

/// Replaces the action's range on the parameter by the new one.
class MergingStrategy : public MergeActionCmdCollisionStrategy {
 public:
  MergingStrategy* clone() const override { return new MergingStrategy(); }

  void execute(OrvMultiCommand* group, boost::shared_ptr<ParameterRange> range,
               boost::shared_ptr<const Action> action) override {
    const boost::shared_ptr<ParameterRange> old = findRangetoRemove(action, range);
    group->orvExecute(RemoveParameterRangeCmd::create(action, old));
    group->orvExecute(AddParameterRangeCmd::create(action, range));
  }
};

}  // namespace

MergeActionCmdCollisionStrategy* MergeActionCmdCollisionStrategy::create() {
  return new MergingStrategy();
}

MergeActionCmdCollisionStrategy::~MergeActionCmdCollisionStrategy() = default;

}  // namespace OrvMediaLib
