#include "media/commands/NewVisualTrackCmd.h"

#include "core/CommandHandler.h"
#include "media/timeline/VisualTrack.h"

#include <boost/pointer_cast.hpp>

namespace KelMediaLib {

NewVisualTrackCmd::NewVisualTrackCmd(int index) : NewTrackCmd("NewVisualTrackCmd", index) {}

boost::shared_ptr<NewVisualTrackCmd> NewVisualTrackCmd::create(int index) {
  return boost::shared_ptr<NewVisualTrackCmd>(new NewVisualTrackCmd(index));
}

NewVisualTrackCmd* NewVisualTrackCmd::clone() const {
  return new NewVisualTrackCmd(index());
}

boost::shared_ptr<const VisualTrack> NewVisualTrackCmd::visualTrack() const {
  return boost::static_pointer_cast<const VisualTrack>(track());
}

boost::shared_ptr<const Track> NewVisualTrackCmd::makeTrack(CommandHandler* handler) {
  return handler->newVisualTrack(index());
}

}  // namespace KelMediaLib
