#pragma once

#include "media/sources/StatsLoader.h"

#include <string>

namespace KelMediaLib {

/// The default stats loader: probes a regular file with FFmpeg's
/// libavformat. One track per video, audio or picture stream, in stream
/// order:
/// - video: its frame rectangle, its frame rate as edit rate, and its frames
///   as range, from 0;
/// - audio: sample rate (also the edit rate), bit depth, channels, and its
///   samples as range, from 0;
/// - picture (a still image file, or a cover picture): its rectangle.
/// The stats' rectangle is that of the first video or picture stream, their
/// time of change the file's.
class FFmpegStatsLoader : public StatsLoader {
 public:
  /// True for a regular file that libavformat opens and finds a video or
  /// picture stream with a size, or an audio stream with a rate, in.
  bool canOpenFile(const std::string& path) override;
  /// Throws `KelMediaLibException` naming the path on a file that
  /// `canOpenFile` refuses, or a video stream without a frame rate.
  void loadStats(const std::string& path, MediaFileStats* stats) override;
  std::string description() const override;
};

}  // namespace KelMediaLib
