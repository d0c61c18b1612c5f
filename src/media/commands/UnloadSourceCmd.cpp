#include "media/commands/UnloadSourceCmd.h"

#include "core/CommandHandler.h"

namespace KelMediaLib {

UnloadSourceCmd::UnloadSourceCmd(boost::shared_ptr<const Source> source)
    : NamedCommand("UnloadSourceCmd"), source_(source) {}

boost::shared_ptr<UnloadSourceCmd> UnloadSourceCmd::create(boost::shared_ptr<const Source> source) {
  return boost::shared_ptr<UnloadSourceCmd>(new UnloadSourceCmd(source));
}

UnloadSourceCmd* UnloadSourceCmd::clone() const {
  return new UnloadSourceCmd(source_);
}

bool UnloadSourceCmd::execute(CommandHandler* handler) {
  handler->unloadSource(source_);
  return true;
}

bool UnloadSourceCmd::unexecute(CommandHandler* handler) {
  handler->loadSource(source_);
  return true;
}

}  // namespace KelMediaLib
