#include "commands/TrimActionEndCmd.h"

#include "actions/OrvException.h"
#include "commands/OrvCommandHandler.h"

namespace OrvMediaLib {

namespace {

// Wraps around like the machine's negation, without the overflow of -min.
long long negated(long long delta) {
  return static_cast<long long>(0ULL - static_cast<unsigned long long>(delta));
}

}  // namespace

boost::shared_ptr<TrimActionEndCmd> TrimActionEndCmd::create(boost::shared_ptr<const Action> action,
                                                             long long delta) {
  return boost::shared_ptr<TrimActionEndCmd>(new TrimActionEndCmd(action, delta));
}

TrimActionEndCmd::TrimActionEndCmd(boost::shared_ptr<const Action> action, long long delta)
    : action_(action), delta_(delta) {
  if (!action_) {
    throw OrvException("TrimActionEndCmd: no action given");
  }
}

void TrimActionEndCmd::execute(KelMediaLib::CommandHandler*) {
  orvCommandHandler()->trimActionEnd(action_, delta_);
}

// Undone by the opposite edit: no position is stored.
void TrimActionEndCmd::unexecute(KelMediaLib::CommandHandler*) {
  orvCommandHandler()->trimActionEnd(action_, negated(delta_));
}

void TrimActionEndCmd::reexecute(KelMediaLib::CommandHandler*) {
  orvCommandHandler()->trimActionEnd(action_, delta_);
}

}  // namespace OrvMediaLib
