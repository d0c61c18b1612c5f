#include "commands/RemoveParameterRangeCmd.h"

#include "actions/OrvException.h"
#include "actions/ParameterRange.h"
#include "commands/OrvCommandHandler.h"

namespace OrvMediaLib {

boost::shared_ptr<RemoveParameterRangeCmd> RemoveParameterRangeCmd::create(
    boost::shared_ptr<const Action> action, boost::shared_ptr<const ParameterRange> range) {
  return boost::shared_ptr<RemoveParameterRangeCmd>(new RemoveParameterRangeCmd(action, range));
}

RemoveParameterRangeCmd::RemoveParameterRangeCmd(boost::shared_ptr<const Action> action,
                                                 boost::shared_ptr<const ParameterRange> range)
    : action_(action), range_(range) {
  if (!action_) {
    throw OrvException("RemoveParameterRangeCmd: no action given");
  }
  if (!range_) {
    throw OrvException("RemoveParameterRangeCmd: no parameter range given");
  }
}

void RemoveParameterRangeCmd::execute(KelMediaLib::CommandHandler*) {
  orvCommandHandler()->removeParameterRange(action_, range_->parameter(), range_->timeRange());
}

void RemoveParameterRangeCmd::unexecute(KelMediaLib::CommandHandler*) {
  orvCommandHandler()->addParameterRange(action_, range_);
}

void RemoveParameterRangeCmd::reexecute(KelMediaLib::CommandHandler* handler) {
  execute(handler);
}

}  // namespace OrvMediaLib
