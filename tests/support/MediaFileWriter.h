#pragma once

#include <string>
#include <vector>

namespace testsupport {

/// Frames or samples per second as a fraction, e.g. 30000/1001.
struct Rate {
  int numerator;
  int denominator;
};

/// A stream of uncompressed RGB pictures, `frames` of them at `frameRate`.
/// Each frame is one flat grey, a shade per frame.
struct VideoStream {
  int width;
  int height;
  Rate frameRate;
  long long frames;
};

/// A stream of 16-bit PCM sound: `samples` per channel at `sampleRate`, a
/// quiet sawtooth.
struct AudioStream {
  int sampleRate;
  int channels;
  long long samples;
};

/// The streams of a file, written video first, each in its given order.
struct MediaFile {
  std::vector<VideoStream> video;
  std::vector<AudioStream> audio;
};

/// Writes `file` to `path` with libavformat, in the container that the
/// extension names: ".mov" or ".nut" for pictures and sound, ".wav" for
/// sound alone. Frames and samples are stored raw, so no encoder is needed
/// and the file's timing is exactly the one asked for; streams are
/// interleaved by time. Throws `std::runtime_error` naming the path and
/// FFmpeg's reason (e.g. ".mp4", which can't hold raw frames).
void writeMediaFile(const std::string& path, const MediaFile& file);

}  // namespace testsupport
