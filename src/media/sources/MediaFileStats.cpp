#include "media/sources/MediaFileStats.h"

#include "core/KelMediaLibException.h"
#include "media/sources/StatsLoader.h"

#include <boost/filesystem.hpp>

#include <string>

namespace KelMediaLib {

MediaFileStats::TrackStats::TrackStats()
    : editRate(0), type(Video), sampleRate(0), bitDepth(0), numChannels(0) {}

boost::shared_ptr<MediaFileStats> MediaFileStats::create() {
  return boost::shared_ptr<MediaFileStats>(new MediaFileStats());
}

boost::shared_ptr<MediaFileStats> MediaFileStats::create(const std::string& path) {
  const boost::shared_ptr<StatsLoader> loader = StatsLoader::loaderFor(path);
  if (!loader) {
    throw KelMediaLibException("can't load \"" + path +
                               "\": no stats loader opens it (is it a video, audio or "
                               "picture file, or a recording?)");
  }
  const boost::shared_ptr<MediaFileStats> stats = create();
  stats->setFilename(path);
  boost::system::error_code error;
  const std::time_t changed = boost::filesystem::last_write_time(path, error);
  if (!error) {
    stats->setLastModified(changed);
  }
  loader->loadStats(path, stats.get());
  return stats;
}

MediaFileStats::MediaFileStats() : lastModified_(0) {}

const MediaFileStats::TrackStats& MediaFileStats::trackStatsAt(unsigned int index) const {
  if (index >= tracks_.size()) {
    throw KelMediaLibException("the stats of \"" + filename_ + "\" have no track " +
                               std::to_string(index) + "; they have " +
                               std::to_string(tracks_.size()));
  }
  return tracks_[index];
}

std::istream& operator>>(std::istream& in, MediaFileStats::TrackType& type) {
  int number = -1;
  if (in >> number) {
    if (number >= MediaFileStats::Video && number <= MediaFileStats::Audio) {
      type = static_cast<MediaFileStats::TrackType>(number);
    } else {
      in.setstate(std::ios::failbit);
    }
  }
  return in;
}

std::ostream& operator<<(std::ostream& out, MediaFileStats::TrackType type) {
  return out << static_cast<int>(type);
}

}  // namespace KelMediaLib
