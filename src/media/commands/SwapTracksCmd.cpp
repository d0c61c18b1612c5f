#include "media/commands/SwapTracksCmd.h"

#include "core/CommandHandler.h"

namespace KelMediaLib {

SwapTracksCmd::SwapTracksCmd(boost::shared_ptr<const Mixer> mixer,
                             boost::shared_ptr<const Track> first,
                             boost::shared_ptr<const Track> second)
    : NamedCommand("SwapTracksCmd"), mixer_(mixer), first_(first), second_(second) {}

boost::shared_ptr<SwapTracksCmd> SwapTracksCmd::create(boost::shared_ptr<const Mixer> mixer,
                                                       boost::shared_ptr<const Track> first,
                                                       boost::shared_ptr<const Track> second) {
  return boost::shared_ptr<SwapTracksCmd>(new SwapTracksCmd(mixer, first, second));
}

SwapTracksCmd* SwapTracksCmd::clone() const {
  return new SwapTracksCmd(mixer_, first_, second_);
}

bool SwapTracksCmd::execute(CommandHandler* handler) {
  handler->swapTrackOrder(mixer_, first_, second_);
  return true;
}

bool SwapTracksCmd::unexecute(CommandHandler* handler) {
  handler->swapTrackOrder(mixer_, first_, second_);
  return true;
}

}  // namespace KelMediaLib
