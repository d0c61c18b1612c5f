#include "media/commands/AddClippingCmd.h"

#include "core/CommandHandler.h"

namespace KelMediaLib {

AddClippingCmd::AddClippingCmd(boost::shared_ptr<Clipping> clipping)
    : NamedCommand("AddClippingCmd"), clipping_(clipping) {}

boost::shared_ptr<AddClippingCmd> AddClippingCmd::create(boost::shared_ptr<Clipping> clipping) {
  return boost::shared_ptr<AddClippingCmd>(new AddClippingCmd(clipping));
}

AddClippingCmd* AddClippingCmd::clone() const {
  return new AddClippingCmd(clipping_);
}

bool AddClippingCmd::execute(CommandHandler* handler) {
  handler->addClipping(clipping_);
  return true;
}

bool AddClippingCmd::unexecute(CommandHandler* handler) {
  handler->removeClipping(clipping_);
  return true;
}

}  // namespace KelMediaLib
