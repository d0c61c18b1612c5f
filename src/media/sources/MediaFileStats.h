#pragma once

#include "core/KelObject.h"
#include "core/ProjectEditRate.h"
#include "values/Range.h"
#include "values/Rect.h"

#include <boost/shared_ptr.hpp>

#include <ctime>
#include <istream>
#include <ostream>
#include <string>
#include <vector>

namespace KelMediaLib {

/// What is known of a source file: its path, picture rectangle, time of last
/// change, and one record per track. Filled by a stats loader or a reader.
class MediaFileStats : public KelObject {
 public:
  /// The kind of a track; the numbers are those of the file format.
  enum TrackType { Video = 0, Image = 1, Audio = 2 };

  /// One track of the file.
  struct TrackStats {
    TrackStats();

    /// The track's stretch, in units of `editRate`.
    Range<long long> range;
    EditRate editRate;
    TrackType type;
    /// The picture's rectangle; empty for sound.
    Rect<int> trackRect;
    /// Samples per second; 0 for pictures.
    EditRate sampleRate;
    int bitDepth;
    int numChannels;
    /// The file that holds the track, when it isn't the source's own file
    /// (a recording bundle keeps its streams apart).
    std::string fileName;
    /// Side files of the track (a screen recording's metadata), in order.
    std::vector<std::string> metaDataFiles;
  };

  /// Empty stats: no file name, an empty rectangle, time 0, no tracks.
  static boost::shared_ptr<MediaFileStats> create();
  /// The stats of the file or directory at `path`, named by it and stamped
  /// with its time of change, as the first registered `StatsLoader` that
  /// opens it reads them. Throws `KelMediaLibException` naming the path when
  /// no loader opens it; a loader's own failure goes on as it is.
  static boost::shared_ptr<MediaFileStats> create(const std::string& path);

  const std::string& filename() const { return filename_; }
  void setFilename(const std::string& filename) { filename_ = filename; }
  Rect<int> rect() const { return rect_; }
  void setRect(const Rect<int>& rect) { rect_ = rect; }
  /// The file's last change, seconds since 1970-01-01 UTC.
  std::time_t lastModified() const { return lastModified_; }
  void setLastModified(std::time_t time) { lastModified_ = time; }

  void addTrackStats(const TrackStats& stats) { tracks_.push_back(stats); }
  const std::vector<TrackStats>& trackStats() const { return tracks_; }
  /// Replaces all track records (how a relink renames the tracks' files).
  void setTrackStats(const std::vector<TrackStats>& tracks) { tracks_ = tracks; }
  /// The track of that index; throws `KelMediaLibException` out of range.
  const TrackStats& trackStatsAt(unsigned int index) const;

 private:
  MediaFileStats();

  std::string filename_;
  Rect<int> rect_;
  std::time_t lastModified_;
  std::vector<TrackStats> tracks_;
};

/// Reads a track type as its number; a number outside 0..2 fails the stream.
std::istream& operator>>(std::istream& in, MediaFileStats::TrackType& type);
std::ostream& operator<<(std::ostream& out, MediaFileStats::TrackType type);

}  // namespace KelMediaLib
