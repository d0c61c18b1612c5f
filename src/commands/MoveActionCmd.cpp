#include "commands/MoveActionCmd.h"

#include "actions/OrvException.h"
#include "commands/OrvCommandHandler.h"

namespace OrvMediaLib {

namespace {

// Wraps around like the machine's negation, without the overflow of -min.
long long negated(long long delta) {
  return static_cast<long long>(0ULL - static_cast<unsigned long long>(delta));
}

}  // namespace

boost::shared_ptr<MoveActionCmd> MoveActionCmd::create(boost::shared_ptr<const Action> action,
                                                       long long delta) {
  return boost::shared_ptr<MoveActionCmd>(new MoveActionCmd(action, delta));
}

MoveActionCmd::MoveActionCmd(boost::shared_ptr<const Action> action, long long delta)
    : action_(action), delta_(delta) {
  if (!action_) {
    throw OrvException("MoveActionCmd: no action given");
  }
}

void MoveActionCmd::execute(KelMediaLib::CommandHandler*) {
  orvCommandHandler()->moveAction(action_, delta_);
}

// Undone by the opposite edit: no position is stored.
void MoveActionCmd::unexecute(KelMediaLib::CommandHandler*) {
  orvCommandHandler()->moveAction(action_, negated(delta_));
}

void MoveActionCmd::reexecute(KelMediaLib::CommandHandler*) {
  orvCommandHandler()->moveAction(action_, delta_);
}

}  // namespace OrvMediaLib
