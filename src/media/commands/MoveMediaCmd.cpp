#include "media/commands/MoveMediaCmd.h"

#include "core/CommandHandler.h"

namespace KelMediaLib {

MoveMediaCmd::MoveMediaCmd(boost::shared_ptr<const Track> track,
                           boost::shared_ptr<const Media> media, long long delta)
    : NamedCommand("MoveMediaCmd"), track_(track), media_(media), delta_(delta) {}

boost::shared_ptr<MoveMediaCmd> MoveMediaCmd::create(boost::shared_ptr<const Track> track,
                                                     boost::shared_ptr<const Media> media,
                                                     long long delta) {
  return boost::shared_ptr<MoveMediaCmd>(new MoveMediaCmd(track, media, delta));
}

MoveMediaCmd* MoveMediaCmd::clone() const {
  return new MoveMediaCmd(track_, media_, delta_);
}

bool MoveMediaCmd::execute(CommandHandler* handler) {
  handler->move(track_, media_, delta_);
  return true;
}

bool MoveMediaCmd::unexecute(CommandHandler* handler) {
  handler->move(track_, media_, -delta_);
  return true;
}

}  // namespace KelMediaLib
