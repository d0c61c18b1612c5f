#include "commands/UndoCmd.h"

#include "actions/OrvException.h"
#include "commands/OrvCommandExecutor.h"
#include "core/Command.h"

namespace OrvMediaLib {

boost::shared_ptr<UndoCmd> UndoCmd::create(boost::shared_ptr<KelMediaLib::Command> command) {
  if (!command) {
    throw OrvException("UndoCmd::create: no command given");
  }
  return boost::shared_ptr<UndoCmd>(new UndoCmd(command));
}

boost::shared_ptr<UndoCmd> UndoCmd::orvCreate(boost::shared_ptr<OrvCommand> command) {
  if (!command) {
    throw OrvException("UndoCmd::orvCreate: no command given");
  }
  return create(OrvCommandExecutor::create(command));
}

UndoCmd::UndoCmd(boost::shared_ptr<KelMediaLib::Command> command) : command_(command) {}

UndoCmd::~UndoCmd() = default;

void UndoCmd::execute(KelMediaLib::CommandHandler* handler) {
  command_->unexecute(handler);
}

void UndoCmd::unexecute(KelMediaLib::CommandHandler* handler) {
  command_->reexecute(handler);
}

void UndoCmd::reexecute(KelMediaLib::CommandHandler* handler) {
  command_->unexecute(handler);
}

}  // namespace OrvMediaLib
