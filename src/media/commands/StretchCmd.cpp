#include "media/commands/StretchCmd.h"

#include "core/CommandHandler.h"

namespace KelMediaLib {

StretchCmd::StretchCmd(boost::shared_ptr<const Track> track, boost::shared_ptr<const Media> media,
                       double scalar)
    : NamedCommand("StretchCmd"), track_(track), media_(media), scalar_(scalar), previous_(1.0) {}

boost::shared_ptr<StretchCmd> StretchCmd::create(boost::shared_ptr<const Track> track,
                                                 boost::shared_ptr<const Media> media,
                                                 double scalar) {
  return boost::shared_ptr<StretchCmd>(new StretchCmd(track, media, scalar));
}

StretchCmd* StretchCmd::clone() const {
  return new StretchCmd(track_, media_, scalar_);
}

bool StretchCmd::execute(CommandHandler* handler) {
  previous_ = handler->stretch(track_, media_, scalar_);
  return true;
}

bool StretchCmd::unexecute(CommandHandler* handler) {
  handler->stretch(track_, media_, previous_);
  return true;
}

}  // namespace KelMediaLib
