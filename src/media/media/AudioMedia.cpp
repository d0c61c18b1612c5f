#include "media/media/AudioMedia.h"

#include "core/Attribute.h"

namespace KelMediaLib {

AudioMedia::AudioMedia(boost::weak_ptr<const ThreadSafe> project, long long mediaStart,
                       long long mediaDuration, unsigned int sampleRate, unsigned int bitDepth)
    : Media(project, mediaStart, mediaDuration),
      gain_(new Attribute<double>("gain", 1.0)),
      volume_(InterpolatingParam<double>::create(project, "volume", 1.0)),
      sampleRate_(new Attribute<unsigned int>("sampleRate", sampleRate)),
      bitDepth_(new Attribute<unsigned int>("bitDepth", bitDepth)) {
  registerParameter(volume_);
}

AudioMedia::AudioMedia(const AudioMedia& other)
    : Media(other),
      gain_(new Attribute<double>("gain", other.gain_->value())),
      volume_(InterpolatingParam<double>::create(other.projectMutex(), "volume", 1.0)),
      sampleRate_(new Attribute<unsigned int>("sampleRate", other.sampleRate_->value())),
      bitDepth_(new Attribute<unsigned int>("bitDepth", other.bitDepth_->value())) {
  registerParameter(volume_);
}

bool AudioMedia::isAudio() const { return true; }

}  // namespace KelMediaLib
