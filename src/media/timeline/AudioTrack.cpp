#include "media/timeline/AudioTrack.h"

#include "core/XMLText.h"
#include "media/media/AudioMedia.h"

#include <boost/pointer_cast.hpp>

#include <ostream>

namespace KelMediaLib {

AudioTrack::AsAudio::result_type AudioTrack::AsAudio::operator()(
    const boost::shared_ptr<Media>& media) const {
  return boost::static_pointer_cast<const AudioMedia>(media);
}

boost::shared_ptr<AudioTrack> AudioTrack::create(boost::weak_ptr<const ThreadSafe> project) {
  return boost::shared_ptr<AudioTrack>(new AudioTrack(project));
}

AudioTrack::AudioTrack(boost::weak_ptr<const ThreadSafe> project)
    : Track(project),
      position_(InterpolatingParam<AudioPosition>::create(project, "position", AudioPosition())) {
  registerParameter(position_);
}

AudioTrack::AudioMediaIterator AudioTrack::audioMediaBegin() const {
  return AudioMediaIterator(mediaList().begin(), AsAudio());
}

AudioTrack::AudioMediaIterator AudioTrack::audioMediaEnd() const {
  return AudioMediaIterator(mediaList().end(), AsAudio());
}

bool AudioTrack::accepts(const Media& media) const {
  return dynamic_cast<const AudioMedia*>(&media) != nullptr;
}

void AudioTrack::xmlName(Options& options) const { writeLiteral(options.out, "AudioTrack"); }

void AudioTrack::xmlAttributes(Options& options) const {
  writeFirstXMLAttribute(options.out, "id", options.ident(*this));
}

void AudioTrack::xmlBody(Options& options, int depth) const {
  writeAttributes(options, depth);
  options.out << genIndent(depth) << "<Parameters>\n";
  position_->toXML(options, depth + 1, std::string());
  options.out << genIndent(depth) << "</Parameters>\n";
  writeMedias(options, depth);
}

}  // namespace KelMediaLib
