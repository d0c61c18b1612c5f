#include "core/Command.h"

#include "core/KelMediaLibException.h"

namespace KelMediaLib {

Command::~Command() = default;

std::string Command::description() const { return std::string(); }

bool Command::reexecute(CommandHandler* handler) { return execute(handler); }

void Command::combine(boost::shared_ptr<Command>) {
  throw KelMediaLibException("command " + KelObject::description() +
                             " can't absorb another command; only a group can");
}

void Command::xmlAttributes(Options&) const {}

void Command::xmlBody(Options&, int) const {}

}  // namespace KelMediaLib
