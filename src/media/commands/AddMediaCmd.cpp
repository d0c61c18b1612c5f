#include "media/commands/AddMediaCmd.h"

#include "core/CommandHandler.h"

namespace KelMediaLib {

AddMediaCmd::AddMediaCmd(boost::shared_ptr<const Track> track, boost::shared_ptr<const Media> media,
                         long long time)
    : NamedCommand("AddMediaCmd"), track_(track), media_(media), time_(time) {}

boost::shared_ptr<AddMediaCmd> AddMediaCmd::create(boost::shared_ptr<const Track> track,
                                                   boost::shared_ptr<const Media> media,
                                                   long long time) {
  return boost::shared_ptr<AddMediaCmd>(new AddMediaCmd(track, media, time));
}

AddMediaCmd* AddMediaCmd::clone() const {
  return new AddMediaCmd(track_, media_, time_);
}

bool AddMediaCmd::execute(CommandHandler* handler) {
  handler->addMedia(track_, media_, time_);
  return true;
}

bool AddMediaCmd::unexecute(CommandHandler* handler) {
  handler->removeMedia(track_, media_, time_);
  return true;
}

}  // namespace KelMediaLib
