#pragma once

#include "media/commands/NewTrackCmd.h"

#include <boost/shared_ptr.hpp>

namespace KelMediaLib {

class AudioTrack;

/// Makes a new audio track in the audio mixer.
class NewAudioTrackCmd : public NewTrackCmd {
 public:
  explicit NewAudioTrackCmd(int index);
  static boost::shared_ptr<NewAudioTrackCmd> create(int index);

  NewAudioTrackCmd* clone() const override;

  /// The track that the first run made; null before it.
  boost::shared_ptr<const AudioTrack> audioTrack() const;

 protected:
  boost::shared_ptr<const Track> makeTrack(CommandHandler* handler) override;
};

}  // namespace KelMediaLib
