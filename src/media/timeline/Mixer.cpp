#include "media/timeline/Mixer.h"

#include "core/KelMediaLibException.h"
#include "media/timeline/Track.h"

#include <algorithm>
#include <ostream>
#include <string>

namespace KelMediaLib {

Mixer::Mixer(boost::weak_ptr<const ThreadSafe> project) : SubProject(project) {}

Mixer::~Mixer() = default;

std::vector<boost::shared_ptr<const Track>> Mixer::tracks() const {
  return std::vector<boost::shared_ptr<const Track>>(tracks_.begin(), tracks_.end());
}

int Mixer::indexOfTrack(const Track* track) const {
  for (std::size_t i = 0; i < tracks_.size(); ++i) {
    if (tracks_[i].get() == track) {
      return static_cast<int>(i);
    }
  }
  return -1;
}

boost::shared_ptr<const Track> Mixer::trackAt(int index) const {
  checkIndex(index, "read");
  return tracks_[static_cast<std::size_t>(index)];
}

void Mixer::insertTrack(boost::shared_ptr<Track> track, int index) {
  if (!track) {
    throw KelMediaLibException("can't put a null track in a mixer");
  }
  if (indexOfTrack(track.get()) >= 0 || track->parent().lock()) {
    throw KelMediaLibException("track " + std::to_string(track->xmlIdent()) +
                               " is in a mixer already");
  }
  if (!acceptsTrack(*track)) {
    throw KelMediaLibException("track " + std::to_string(track->xmlIdent()) +
                               " is of a kind this mixer doesn't hold");
  }
  const int size = numTracks();
  if (index == -1) {
    index = size;
  }
  if (index < 0 || index > size) {
    throw KelMediaLibException("can't put a track at index " + std::to_string(index) +
                               " of a mixer of " + std::to_string(size) + " tracks");
  }
  tracks_.insert(tracks_.begin() + index, track);
  track->setParent(boost::weak_ptr<const Mixer>(shared_from_this()));
  notify();
}

boost::shared_ptr<Track> Mixer::removeTrack(int index) {
  checkIndex(index, "remove");
  const boost::shared_ptr<Track> removed = tracks_[static_cast<std::size_t>(index)];
  tracks_.erase(tracks_.begin() + index);
  removed->setParent(boost::weak_ptr<const Mixer>());
  notify();
  return removed;
}

void Mixer::swapTracks(int first, int second) {
  checkIndex(first, "swap");
  checkIndex(second, "swap");
  std::swap(tracks_[static_cast<std::size_t>(first)], tracks_[static_cast<std::size_t>(second)]);
  notify();
}

void Mixer::writeTracks(Options& options, int depth) const {
  if (tracks_.empty()) {
    return;
  }
  options.out << genIndent(depth) << "<Tracks>\n";
  for (const boost::shared_ptr<Track>& track : tracks_) {
    track->toXML(options, depth + 1, std::string());
  }
  options.out << genIndent(depth) << "</Tracks>\n";
}

void Mixer::checkIndex(int index, const char* what) const {
  if (index < 0 || index >= numTracks()) {
    throw KelMediaLibException(std::string("can't ") + what + " the track at index " +
                               std::to_string(index) + " of a mixer of " +
                               std::to_string(numTracks()) + " tracks");
  }
}

}  // namespace KelMediaLib
