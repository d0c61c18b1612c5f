#include "commands/OrvCommandHistory.h"

#include "actions/OrvException.h"
#include "commands/OrvCommand.h"

namespace OrvMediaLib {

OrvCommandHistory::OrvCommandHistory() : handler_(nullptr) {}

void OrvCommandHistory::setCommandHandler(KelMediaLib::CommandHandler* handler) {
  handler_ = handler;
}

void OrvCommandHistory::execute(boost::shared_ptr<OrvCommand> command) {
  if (!command) {
    throw OrvException("OrvCommandHistory::execute: no command given");
  }
  command->execute(handler_);
  undoList_.push_back(command);
  redoList_.clear();
}

// The command leaves its list before it runs: one that fails is dropped
// rather than offered again, since its state after a failure is unknown.
void OrvCommandHistory::undo() {
  if (undoList_.empty()) {
    throw OrvException("no commands to undo");
  }
  boost::shared_ptr<OrvCommand> command = undoList_.back();
  undoList_.pop_back();
  command->unexecute(handler_);
  redoList_.push_back(command);
}

void OrvCommandHistory::redo() {
  if (redoList_.empty()) {
    throw OrvException("no commands to redo");
  }
  boost::shared_ptr<OrvCommand> command = redoList_.back();
  redoList_.pop_back();
  command->reexecute(handler_);
  undoList_.push_back(command);
}

void OrvCommandHistory::undoAll() {
  while (!undoList_.empty()) {
    undo();
  }
}

void OrvCommandHistory::redoAll() {
  while (!redoList_.empty()) {
    redo();
  }
}

}  // namespace OrvMediaLib
