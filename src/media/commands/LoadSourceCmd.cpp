#include "media/commands/LoadSourceCmd.h"

#include "core/CommandHandler.h"

namespace KelMediaLib {

LoadSourceCmd::LoadSourceCmd(const std::string& fileName)
    : NamedCommand("LoadSourceCmd"), fileName_(fileName) {}

boost::shared_ptr<LoadSourceCmd> LoadSourceCmd::create(const std::string& fileName) {
  return boost::shared_ptr<LoadSourceCmd>(new LoadSourceCmd(fileName));
}

LoadSourceCmd* LoadSourceCmd::clone() const {
  return new LoadSourceCmd(fileName_);
}

bool LoadSourceCmd::execute(CommandHandler* handler) {
  source_ = handler->loadSource(fileName_);
  return true;
}

bool LoadSourceCmd::unexecute(CommandHandler* handler) {
  handler->unloadSource(source_);
  return true;
}

bool LoadSourceCmd::reexecute(CommandHandler* handler) {
  handler->loadSource(source_);
  return true;
}

}  // namespace KelMediaLib
