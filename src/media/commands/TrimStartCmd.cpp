#include "media/commands/TrimStartCmd.h"

#include "core/CommandHandler.h"

namespace KelMediaLib {

TrimStartCmd::TrimStartCmd(boost::shared_ptr<const Track> track,
                           boost::shared_ptr<const Media> media, long long delta)
    : NamedCommand("TrimStartCmd"), track_(track), media_(media), delta_(delta) {}

boost::shared_ptr<TrimStartCmd> TrimStartCmd::create(boost::shared_ptr<const Track> track,
                                                     boost::shared_ptr<const Media> media,
                                                     long long delta) {
  return boost::shared_ptr<TrimStartCmd>(new TrimStartCmd(track, media, delta));
}

TrimStartCmd* TrimStartCmd::clone() const {
  return new TrimStartCmd(track_, media_, delta_);
}

bool TrimStartCmd::execute(CommandHandler* handler) {
  handler->trimStart(track_, media_, delta_);
  return true;
}

bool TrimStartCmd::unexecute(CommandHandler* handler) {
  handler->trimStart(track_, media_, -delta_);
  return true;
}

}  // namespace KelMediaLib
