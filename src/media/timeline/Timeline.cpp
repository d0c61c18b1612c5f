#include "media/timeline/Timeline.h"

#include "core/XMLText.h"
#include "media/timeline/AudioMixer.h"
#include "media/timeline/Track.h"
#include "media/timeline/VisualMixer.h"

#include <ostream>
#include <string>

namespace KelMediaLib {

namespace {

void collect(const Mixer* mixer, std::vector<boost::shared_ptr<const Media>>& medias) {
  if (!mixer) {
    return;
  }
  for (Mixer::TrackIterator track = mixer->trackBegin(); track != mixer->trackEnd(); ++track) {
    const std::vector<boost::shared_ptr<const Media>> onTrack = (*track)->medias();
    medias.insert(medias.end(), onTrack.begin(), onTrack.end());
  }
}

}  // namespace

boost::shared_ptr<Timeline> Timeline::create() {
  return boost::shared_ptr<Timeline>(new Timeline());
}

Timeline::Timeline() = default;

std::vector<boost::shared_ptr<const Media>> Timeline::allMedias() const {
  std::vector<boost::shared_ptr<const Media>> medias;
  collect(visualMixer_.get(), medias);
  collect(audioMixer_.get(), medias);
  return medias;
}

void Timeline::xmlName(Options& options) const { writeLiteral(options.out, "Timeline"); }

void Timeline::xmlBody(Options& options, int depth) const {
  if (visualMixer_) {
    visualMixer_->toXML(options, depth, std::string());
  }
  if (audioMixer_) {
    audioMixer_->toXML(options, depth, std::string());
  }
}

}  // namespace KelMediaLib
