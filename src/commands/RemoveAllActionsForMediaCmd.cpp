#include "commands/RemoveAllActionsForMediaCmd.h"

#include "actions/ActionBin.h"
#include "actions/OrvException.h"
#include "commands/RemoveActionCmd.h"

namespace OrvMediaLib {

boost::shared_ptr<RemoveAllActionsForMediaCmd> RemoveAllActionsForMediaCmd::create(
    boost::shared_ptr<const KelMediaLib::Media> media, boost::shared_ptr<const ActionBin> bin) {
  return boost::shared_ptr<RemoveAllActionsForMediaCmd>(
      new RemoveAllActionsForMediaCmd(media, bin));
}

RemoveAllActionsForMediaCmd::RemoveAllActionsForMediaCmd(
    boost::shared_ptr<const KelMediaLib::Media> media, boost::shared_ptr<const ActionBin> bin)
    : media_(media), bin_(bin) {
  if (!media_) {
    throw OrvException("RemoveAllActionsForMediaCmd: no media given");
  }
  if (!bin_) {
    throw OrvException("RemoveAllActionsForMediaCmd: no action bin given");
  }
}

void RemoveAllActionsForMediaCmd::executeCommands(KelMediaLib::CommandHandler const*) {
  // A snapshot: each member shortens the bin's own list.
  const boost::shared_ptr<ActionList> actions = bin_->mediasActions(media_);
  for (const boost::shared_ptr<const Action>& action : *actions) {
    orvExecute(RemoveActionCmd::create(action));
  }
}

RemoveAllActionsForMediaCmd* RemoveAllActionsForMediaCmd::clone() const {
  return new RemoveAllActionsForMediaCmd(*this);
}

std::string RemoveAllActionsForMediaCmd::description() const {
  return "RemoveAllActionsForMediaCmd";
}

}  // namespace OrvMediaLib
