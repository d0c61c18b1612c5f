#include "media/commands/NewImageTrackCmd.h"

#include "core/CommandHandler.h"
#include "media/timeline/VisualTrack.h"

#include <boost/pointer_cast.hpp>

namespace KelMediaLib {

NewImageTrackCmd::NewImageTrackCmd(int index) : NewTrackCmd("NewImageTrackCmd", index) {}

boost::shared_ptr<NewImageTrackCmd> NewImageTrackCmd::create(int index) {
  return boost::shared_ptr<NewImageTrackCmd>(new NewImageTrackCmd(index));
}

NewImageTrackCmd* NewImageTrackCmd::clone() const {
  return new NewImageTrackCmd(index());
}

boost::shared_ptr<const VisualTrack> NewImageTrackCmd::visualTrack() const {
  return boost::static_pointer_cast<const VisualTrack>(track());
}

boost::shared_ptr<const Track> NewImageTrackCmd::makeTrack(CommandHandler* handler) {
  return handler->newImageTrack(index());
}

}  // namespace KelMediaLib
