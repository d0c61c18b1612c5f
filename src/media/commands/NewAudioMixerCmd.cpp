#include "media/commands/NewAudioMixerCmd.h"

#include "core/CommandHandler.h"
#include "media/timeline/AudioMixer.h"

#include <boost/pointer_cast.hpp>

namespace KelMediaLib {

NewAudioMixerCmd::NewAudioMixerCmd(unsigned int sampleRate, unsigned int bitDepth,
                                   unsigned int numChannels)
    : NamedCommand("NewAudioMixerCmd"),
      sampleRate_(sampleRate),
      bitDepth_(bitDepth),
      numChannels_(numChannels) {}

boost::shared_ptr<NewAudioMixerCmd> NewAudioMixerCmd::create(unsigned int sampleRate,
                                                             unsigned int bitDepth,
                                                             unsigned int numChannels) {
  return boost::shared_ptr<NewAudioMixerCmd>(
      new NewAudioMixerCmd(sampleRate, bitDepth, numChannels));
}

NewAudioMixerCmd* NewAudioMixerCmd::clone() const {
  return new NewAudioMixerCmd(sampleRate_, bitDepth_, numChannels_);
}

bool NewAudioMixerCmd::execute(CommandHandler* handler) {
  const boost::shared_ptr<const AudioMixer> previous = handler->audioMixer();
  mixer_ = handler->newAudioMixer(sampleRate_, bitDepth_, numChannels_);
  previous_ = previous;
  return true;
}

bool NewAudioMixerCmd::unexecute(CommandHandler* handler) {
  handler->removeAudioMixer();
  if (previous_) {
    handler->newAudioMixer(boost::const_pointer_cast<AudioMixer>(previous_));
  }
  return true;
}

bool NewAudioMixerCmd::reexecute(CommandHandler* handler) {
  handler->newAudioMixer(boost::const_pointer_cast<AudioMixer>(mixer_));
  return true;
}

}  // namespace KelMediaLib
