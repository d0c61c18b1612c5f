#include "media/commands/UnlinkCmd.h"

#include "core/CommandHandler.h"
#include "media/media/Media.h"

namespace KelMediaLib {

UnlinkCmd::UnlinkCmd(boost::shared_ptr<const Media> first, boost::shared_ptr<const Media> second)
    : NamedCommand("UnlinkCmd"),
      first_(first),
      second_(second),
      firstIndex_(-1),
      secondIndex_(-1) {}

boost::shared_ptr<UnlinkCmd> UnlinkCmd::create(boost::shared_ptr<const Media> first,
                                               boost::shared_ptr<const Media> second) {
  return boost::shared_ptr<UnlinkCmd>(new UnlinkCmd(first, second));
}

UnlinkCmd* UnlinkCmd::clone() const {
  return new UnlinkCmd(first_, second_);
}

bool UnlinkCmd::execute(CommandHandler* handler) {
  if (first_ && second_) {
    firstIndex_ = first_->indexOfLink(second_.get());
    secondIndex_ = second_->indexOfLink(first_.get());
  }
  handler->removeLink(first_, second_);
  return true;
}

bool UnlinkCmd::unexecute(CommandHandler* handler) {
  handler->addLink(first_, second_, firstIndex_, secondIndex_);
  return true;
}

}  // namespace KelMediaLib
