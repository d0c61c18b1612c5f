#include "media/media/AudioTransition.h"

#include "core/XMLText.h"
#include "media/media/ConstMediaDispatcher.h"

#include <boost/pointer_cast.hpp>

namespace KelMediaLib {

boost::shared_ptr<AudioTransition> AudioTransition::create(
    long long duration, boost::weak_ptr<const ThreadSafe> project) {
  return boost::shared_ptr<AudioTransition>(new AudioTransition(duration, project));
}

AudioTransition::AudioTransition(long long duration, boost::weak_ptr<const ThreadSafe> project)
    : AudioMedia(project, 0, duration, 0, 0) {}

AudioTransition::AudioTransition(const AudioTransition& other) : AudioMedia(other) {}

void AudioTransition::dispatch(ConstMediaDispatcher& dispatcher) const {
  dispatcher.dispatchMedia(boost::static_pointer_cast<const AudioTransition>(shared_from_this()));
}

Media* AudioTransition::copyKind() const {
  return new AudioTransition(*this);
}

void AudioTransition::xmlName(Options& options) const {
  writeLiteral(options.out, "AudioTransition");
}

void AudioTransition::xmlAttributes(Options& options) const {
  writeTimeAttributes(options);
}

}  // namespace KelMediaLib
