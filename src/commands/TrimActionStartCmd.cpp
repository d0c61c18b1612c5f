#include "commands/TrimActionStartCmd.h"

#include "actions/OrvException.h"
#include "commands/OrvCommandHandler.h"

namespace OrvMediaLib {

namespace {

// Wraps around like the machine's negation, without the overflow of -min.
long long negated(long long delta) {
  return static_cast<long long>(0ULL - static_cast<unsigned long long>(delta));
}

}  // namespace

boost::shared_ptr<TrimActionStartCmd> TrimActionStartCmd::create(
    boost::shared_ptr<const Action> action, long long delta) {
  return boost::shared_ptr<TrimActionStartCmd>(new TrimActionStartCmd(action, delta));
}

TrimActionStartCmd::TrimActionStartCmd(boost::shared_ptr<const Action> action, long long delta)
    : action_(action), delta_(delta) {
  if (!action_) {
    throw OrvException("TrimActionStartCmd: no action given");
  }
}

void TrimActionStartCmd::execute(KelMediaLib::CommandHandler*) {
  orvCommandHandler()->trimActionStart(action_, delta_);
}

// Undone by the opposite edit: no position is stored.
void TrimActionStartCmd::unexecute(KelMediaLib::CommandHandler*) {
  orvCommandHandler()->trimActionStart(action_, negated(delta_));
}

void TrimActionStartCmd::reexecute(KelMediaLib::CommandHandler*) {
  orvCommandHandler()->trimActionStart(action_, delta_);
}

}  // namespace OrvMediaLib
