#pragma once

#include "media/commands/NamedCommand.h"

#include <boost/shared_ptr.hpp>

namespace KelMediaLib {

class AudioMixer;

/// Makes an audio mixer of the given format and installs it in the timeline in
/// place of the one there was; undo puts the previous one back (or none),
/// redo installs the same new mixer again.
class NewAudioMixerCmd : public NamedCommand {
 public:
  NewAudioMixerCmd(unsigned int sampleRate, unsigned int bitDepth, unsigned int numChannels);
  static boost::shared_ptr<NewAudioMixerCmd> create(unsigned int sampleRate, unsigned int bitDepth,
                                                    unsigned int numChannels);

  NewAudioMixerCmd* clone() const override;
  bool execute(CommandHandler* handler) override;
  bool unexecute(CommandHandler* handler) override;
  bool reexecute(CommandHandler* handler) override;

  /// The mixer that the first run made; null before it.
  boost::shared_ptr<const AudioMixer> mixer() const { return mixer_; }

 private:
  unsigned int sampleRate_;
  unsigned int bitDepth_;
  unsigned int numChannels_;
  boost::shared_ptr<const AudioMixer> mixer_;
  boost::shared_ptr<const AudioMixer> previous_;
};

}  // namespace KelMediaLib
