#include "media/commands/RemoveClippingCmd.h"

#include "core/CommandHandler.h"

namespace KelMediaLib {

RemoveClippingCmd::RemoveClippingCmd(boost::shared_ptr<Clipping> clipping)
    : NamedCommand("RemoveClippingCmd"), clipping_(clipping) {}

boost::shared_ptr<RemoveClippingCmd> RemoveClippingCmd::create(
    boost::shared_ptr<Clipping> clipping) {
  return boost::shared_ptr<RemoveClippingCmd>(new RemoveClippingCmd(clipping));
}

RemoveClippingCmd* RemoveClippingCmd::clone() const {
  return new RemoveClippingCmd(clipping_);
}

bool RemoveClippingCmd::execute(CommandHandler* handler) {
  handler->removeClipping(clipping_);
  return true;
}

bool RemoveClippingCmd::unexecute(CommandHandler* handler) {
  handler->addClipping(clipping_);
  return true;
}

}  // namespace KelMediaLib
