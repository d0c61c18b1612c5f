#include "media/commands/NewAudioTrackCmd.h"

#include "core/CommandHandler.h"
#include "media/timeline/AudioTrack.h"

#include <boost/pointer_cast.hpp>

namespace KelMediaLib {

NewAudioTrackCmd::NewAudioTrackCmd(int index) : NewTrackCmd("NewAudioTrackCmd", index) {}

boost::shared_ptr<NewAudioTrackCmd> NewAudioTrackCmd::create(int index) {
  return boost::shared_ptr<NewAudioTrackCmd>(new NewAudioTrackCmd(index));
}

NewAudioTrackCmd* NewAudioTrackCmd::clone() const {
  return new NewAudioTrackCmd(index());
}

boost::shared_ptr<const AudioTrack> NewAudioTrackCmd::audioTrack() const {
  return boost::static_pointer_cast<const AudioTrack>(track());
}

boost::shared_ptr<const Track> NewAudioTrackCmd::makeTrack(CommandHandler* handler) {
  return handler->newAudioTrack(index());
}

}  // namespace KelMediaLib
