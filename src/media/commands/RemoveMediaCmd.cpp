#include "media/commands/RemoveMediaCmd.h"

namespace KelMediaLib {

RemoveMediaCmd::RemoveMediaCmd(boost::shared_ptr<const Track> track,
                               boost::shared_ptr<const Media> media, bool withLinks, long long time)
    : NamedCommand("RemoveMediaCmd"),
      track_(track),
      media_(media),
      withLinks_(withLinks),
      time_(time) {}

boost::shared_ptr<RemoveMediaCmd> RemoveMediaCmd::create(boost::shared_ptr<const Track> track,
                                                         boost::shared_ptr<const Media> media) {
  return boost::shared_ptr<RemoveMediaCmd>(new RemoveMediaCmd(track, media, true, 0));
}

boost::shared_ptr<RemoveMediaCmd> RemoveMediaCmd::create(boost::shared_ptr<const Track> track,
                                                         boost::shared_ptr<const Media> media,
                                                         long long time) {
  return boost::shared_ptr<RemoveMediaCmd>(new RemoveMediaCmd(track, media, false, time));
}

RemoveMediaCmd* RemoveMediaCmd::clone() const {
  return new RemoveMediaCmd(track_, media_, withLinks_, time_);
}

bool RemoveMediaCmd::execute(CommandHandler* handler) {
  if (withLinks_) {
    removed_ = handler->removeMedia(track_, media_);
  } else {
    handler->removeMedia(track_, media_, time_);
    removed_ = MediaPlacements{MediaPlacement{track_, media_, time_}};
  }
  return true;
}

bool RemoveMediaCmd::unexecute(CommandHandler* handler) {
  for (auto it = removed_.rbegin(); it != removed_.rend(); ++it) {
    handler->addMedia(it->track, it->media, it->time);
  }
  return true;
}

}  // namespace KelMediaLib
