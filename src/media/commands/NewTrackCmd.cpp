#include "media/commands/NewTrackCmd.h"

#include "core/CommandHandler.h"
#include "media/timeline/Mixer.h"
#include "media/timeline/Track.h"

#include <boost/pointer_cast.hpp>

namespace KelMediaLib {

NewTrackCmd::NewTrackCmd(const char* name, int index)
    : NamedCommand(name), index_(index), placed_(index) {}

bool NewTrackCmd::execute(CommandHandler* handler) {
  track_ = makeTrack(handler);
  mixer_ = track_->parent().lock();
  return true;
}

bool NewTrackCmd::unexecute(CommandHandler* handler) {
  placed_ = handler->removeTrack(mixer_, track_);
  return true;
}

bool NewTrackCmd::reexecute(CommandHandler* handler) {
  handler->addTrack(mixer_, boost::const_pointer_cast<Track>(track_), placed_);
  return true;
}

}  // namespace KelMediaLib
