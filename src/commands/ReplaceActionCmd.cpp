#include "commands/ReplaceActionCmd.h"

#include "actions/Action.h"
#include "actions/OrvException.h"
#include "commands/AddParameterRangeCmd.h"
#include "commands/RemoveParameterRangeCmd.h"

namespace OrvMediaLib {

boost::shared_ptr<ReplaceActionCmd> ReplaceActionCmd::create(
    boost::shared_ptr<const Action> source, boost::shared_ptr<const Action> target) {
  return boost::shared_ptr<ReplaceActionCmd>(new ReplaceActionCmd(source, target));
}

ReplaceActionCmd::ReplaceActionCmd(boost::shared_ptr<const Action> source,
                                   boost::shared_ptr<const Action> target)
    : source_(source), target_(target) {
  if (!source_) {
    throw OrvException("ReplaceActionCmd: no source action given");
  }
  if (!target_) {
    throw OrvException("ReplaceActionCmd: no target action given");
  }
}

void ReplaceActionCmd::executeCommands(KelMediaLib::CommandHandler const*) {
  removeOldRanges();
  addNewRanges();
}

// Both loops walk a fresh list, which the members' edits leave alone.
void ReplaceActionCmd::removeOldRanges() {
  const boost::shared_ptr<ParameterRangeList> ranges = target_->parameterRanges();
  for (const boost::shared_ptr<ParameterRange>& range : *ranges) {
    orvExecute(RemoveParameterRangeCmd::create(target_, range));
  }
}

void ReplaceActionCmd::addNewRanges() {
  const boost::shared_ptr<ParameterRangeList> ranges = source_->parameterRanges();
  for (const boost::shared_ptr<ParameterRange>& range : *ranges) {
    orvExecute(AddParameterRangeCmd::create(target_, range));
  }
}

}  // namespace OrvMediaLib
