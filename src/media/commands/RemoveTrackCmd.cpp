#include "media/commands/RemoveTrackCmd.h"

#include "core/CommandHandler.h"
#include "core/KelMediaLibException.h"
#include "core/XMLText.h"
#include "media/commands/NamedCommand.h"
#include "media/commands/RemoveMediaCmd.h"
#include "media/media/Media.h"
#include "media/timeline/Mixer.h"
#include "media/timeline/Track.h"

#include <boost/pointer_cast.hpp>

#include <ostream>
#include <vector>

namespace KelMediaLib {

namespace {

// The last step of the group: the emptied track leaves its mixer.
class TakeTrackCmd : public NamedCommand {
 public:
  TakeTrackCmd(boost::shared_ptr<const Mixer> mixer, boost::shared_ptr<const Track> track)
      : NamedCommand("TakeTrackCmd"), mixer_(mixer), track_(track), index_(-1) {}

  TakeTrackCmd* clone() const override { return new TakeTrackCmd(mixer_, track_); }

  bool execute(CommandHandler* handler) override {
    index_ = handler->removeTrack(mixer_, track_);
    return true;
  }

  bool unexecute(CommandHandler* handler) override {
    handler->addTrack(mixer_, boost::const_pointer_cast<Track>(track_), index_);
    return true;
  }

 private:
  boost::shared_ptr<const Mixer> mixer_;
  boost::shared_ptr<const Track> track_;
  int index_;
};

}  // namespace

RemoveTrackCmd::RemoveTrackCmd(boost::shared_ptr<const Track> track) : track_(track) {}

boost::shared_ptr<RemoveTrackCmd> RemoveTrackCmd::create(boost::shared_ptr<const Track> track) {
  return boost::shared_ptr<RemoveTrackCmd>(new RemoveTrackCmd(track));
}

std::string RemoveTrackCmd::description() const {
  return "RemoveTrackCmd";
}

RemoveTrackCmd* RemoveTrackCmd::clone() const {
  return new RemoveTrackCmd(track_);
}

void RemoveTrackCmd::executeCommands(CommandHandler const*) {
  if (!track_) {
    throw KelMediaLibException("RemoveTrackCmd: no track given");
  }
  const boost::shared_ptr<const Mixer> mixer = track_->parent().lock();
  if (!mixer) {
    throw KelMediaLibException("RemoveTrackCmd: the track is in no mixer");
  }
  // Last first: undo adds them back first to last, and media with equal
  // starts keep their order.
  const std::vector<boost::shared_ptr<const Media>> medias = track_->medias();
  for (auto it = medias.rbegin(); it != medias.rend(); ++it) {
    execute(RemoveMediaCmd::create(track_, *it, (*it)->range().start));
  }
  execute(boost::shared_ptr<Command>(new TakeTrackCmd(mixer, track_)));
}

void RemoveTrackCmd::xmlName(Options& options) const {
  writeLiteral(options.out, "RemoveTrackCmd");
}

}  // namespace KelMediaLib
