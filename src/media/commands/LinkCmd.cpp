#include "media/commands/LinkCmd.h"

#include "core/CommandHandler.h"

namespace KelMediaLib {

LinkCmd::LinkCmd(boost::shared_ptr<const Media> first, boost::shared_ptr<const Media> second)
    : NamedCommand("LinkCmd"), first_(first), second_(second) {}

boost::shared_ptr<LinkCmd> LinkCmd::create(boost::shared_ptr<const Media> first,
                                           boost::shared_ptr<const Media> second) {
  return boost::shared_ptr<LinkCmd>(new LinkCmd(first, second));
}

LinkCmd* LinkCmd::clone() const {
  return new LinkCmd(first_, second_);
}

bool LinkCmd::execute(CommandHandler* handler) {
  handler->addLink(first_, second_);
  return true;
}

bool LinkCmd::unexecute(CommandHandler* handler) {
  handler->removeLink(first_, second_);
  return true;
}

}  // namespace KelMediaLib
