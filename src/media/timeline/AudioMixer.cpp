#include "media/timeline/AudioMixer.h"

#include "core/Attribute.h"
#include "core/XMLText.h"
#include "media/timeline/AudioTrack.h"

#include <ostream>
#include <string>

namespace KelMediaLib {

boost::shared_ptr<AudioMixer> AudioMixer::create(unsigned int sampleRate, unsigned int bitDepth,
                                                 unsigned int numChannels,
                                                 boost::weak_ptr<const ThreadSafe> project) {
  return boost::shared_ptr<AudioMixer>(new AudioMixer(sampleRate, bitDepth, numChannels, project));
}

AudioMixer::AudioMixer(unsigned int sampleRate, unsigned int bitDepth, unsigned int numChannels,
                       boost::weak_ptr<const ThreadSafe> project)
    : Mixer(project),
      sampleRate_(new Attribute<unsigned int>("sampleRate", sampleRate)),
      bitDepth_(new Attribute<unsigned int>("bitDepth", bitDepth)),
      numChannels_(new Attribute<unsigned int>("numChannels", numChannels)) {}

bool AudioMixer::acceptsTrack(const Track& track) const {
  return dynamic_cast<const AudioTrack*>(&track) != nullptr;
}

boost::shared_ptr<Track> AudioMixer::makeTrack(boost::weak_ptr<const ThreadSafe> project) const {
  return AudioTrack::create(project);
}

void AudioMixer::xmlName(Options& options) const { writeLiteral(options.out, "AudioMixer"); }

void AudioMixer::xmlAttributes(Options& options) const {
  writeFirstXMLAttribute(options.out, "id", options.ident(*this));
}

void AudioMixer::xmlBody(Options& options, int depth) const {
  options.out << genIndent(depth) << "<Attributes>\n";
  sampleRate_->toXML(options, depth + 1, std::string());
  bitDepth_->toXML(options, depth + 1, std::string());
  numChannels_->toXML(options, depth + 1, std::string());
  options.out << genIndent(depth) << "</Attributes>\n";
  writeTracks(options, depth);
}

}  // namespace KelMediaLib
