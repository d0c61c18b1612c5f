#include "media/commands/TrimEndCmd.h"

#include "core/CommandHandler.h"

namespace KelMediaLib {

TrimEndCmd::TrimEndCmd(boost::shared_ptr<const Track> track, boost::shared_ptr<const Media> media,
                       long long delta)
    : NamedCommand("TrimEndCmd"), track_(track), media_(media), delta_(delta) {}

boost::shared_ptr<TrimEndCmd> TrimEndCmd::create(boost::shared_ptr<const Track> track,
                                                 boost::shared_ptr<const Media> media,
                                                 long long delta) {
  return boost::shared_ptr<TrimEndCmd>(new TrimEndCmd(track, media, delta));
}

TrimEndCmd* TrimEndCmd::clone() const {
  return new TrimEndCmd(track_, media_, delta_);
}

bool TrimEndCmd::execute(CommandHandler* handler) {
  handler->trimEnd(track_, media_, delta_);
  return true;
}

bool TrimEndCmd::unexecute(CommandHandler* handler) {
  handler->trimEnd(track_, media_, -delta_);
  return true;
}

}  // namespace KelMediaLib
