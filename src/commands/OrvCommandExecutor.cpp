#include "commands/OrvCommandExecutor.h"

#include "actions/OrvException.h"
#include "commands/OrvCommand.h"
#include "core/XMLText.h"

#include <ostream>

namespace OrvMediaLib {

boost::shared_ptr<OrvCommandExecutor> OrvCommandExecutor::create(
    boost::shared_ptr<OrvCommand> command) {
  if (!command) {
    throw OrvException("OrvCommandExecutor::create: no command given");
  }
  return boost::shared_ptr<OrvCommandExecutor>(new OrvCommandExecutor(command));
}

OrvCommandExecutor::OrvCommandExecutor(boost::shared_ptr<OrvCommand> command) : command_(command) {}

OrvCommandExecutor::~OrvCommandExecutor() = default;

std::string OrvCommandExecutor::description() const {
  return std::string();
}

OrvCommandExecutor* OrvCommandExecutor::clone() const {
  return nullptr;
}

// An action command has no way to report "nothing done": it either returns
// or throws, so a return is always a success worth recording.
bool OrvCommandExecutor::execute(KelMediaLib::CommandHandler* handler) {
  command_->execute(handler);
  return true;
}

bool OrvCommandExecutor::unexecute(KelMediaLib::CommandHandler* handler) {
  command_->unexecute(handler);
  return true;
}

bool OrvCommandExecutor::reexecute(KelMediaLib::CommandHandler* handler) {
  command_->reexecute(handler);
  return true;
}

void OrvCommandExecutor::xmlName(Options& options) const {
  KelMediaLib::writeLiteral(options.out, "OrvCommandExecutor");
}

}  // namespace OrvMediaLib
