#include "commands/RemoveActionCmd.h"

#include "actions/ActionBin.h"
#include "actions/OrvException.h"
#include "commands/OrvCommandHandler.h"

namespace OrvMediaLib {

boost::shared_ptr<RemoveActionCmd> RemoveActionCmd::create(boost::shared_ptr<const Action> action) {
  return boost::shared_ptr<RemoveActionCmd>(new RemoveActionCmd(action));
}

RemoveActionCmd::RemoveActionCmd(boost::shared_ptr<const Action> action) : action_(action) {
  if (!action_) {
    throw OrvException("RemoveActionCmd: no action given");
  }
}

void RemoveActionCmd::execute(KelMediaLib::CommandHandler*) {
  bin_ = orvCommandHandler()->removeAction(action_);
}

void RemoveActionCmd::unexecute(KelMediaLib::CommandHandler*) {
  orvCommandHandler()->addAction(bin_, action_);
}

void RemoveActionCmd::reexecute(KelMediaLib::CommandHandler* handler) {
  execute(handler);
}

}  // namespace OrvMediaLib
