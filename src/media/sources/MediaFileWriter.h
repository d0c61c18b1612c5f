#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace KelMediaLib {

/// Writes media files with libavformat: pictures and sound that the caller
/// draws, in the container that the path's extension names (".mov" or
/// ".nut" for pictures and sound, ".wav" for sound alone). What the stats
/// loader reads back is exactly what was asked: the frames, the samples,
/// the rates.
///
/// Deterministic: the same streams give the same bytes on every run (no
/// encoder name, no creation time in the file).
class MediaFileWriter {
 public:
  /// Frames or samples per second as a fraction, e.g. 30000/1001.
  struct Rate {
    int numerator;
    int denominator;
  };

  /// How the pictures are stored.
  enum class Codec {
    /// Uncompressed RGB: no encoder involved, three bytes a pixel.
    Raw,
    /// QuickTime Animation: lossless run lengths of what changed since the
    /// frame before, a key frame every second. A flat desktop where little
    /// moves takes a few kilobytes a frame instead of megabytes.
    Animation
  };

  /// Draws frame `frame` (from 0) into `rgb`: `height` rows of 3 bytes a
  /// pixel, red first, each row `lineSize` bytes after the one before.
  typedef std::function<void(long long frame, std::uint8_t* rgb, int lineSize)> DrawFrame;
  /// Writes `count` samples per channel from sample `first` on into
  /// `interleaved`, the channels of one sample side by side.
  typedef std::function<void(long long first, long long count, std::int16_t* interleaved)>
      FillSamples;

  /// `frames` pictures of `width` x `height` at `frameRate`. Without a
  /// drawing function each frame is one flat grey, a shade per frame.
  struct Video {
    int width;
    int height;
    Rate frameRate;
    long long frames;
    Codec codec = Codec::Raw;
    DrawFrame draw = nullptr;
  };

  /// 16-bit PCM sound, `samples` per channel at `sampleRate`. Without a
  /// filling function, a quiet sawtooth.
  struct Audio {
    int sampleRate;
    int channels;
    long long samples;
    FillSamples fill = nullptr;
  };

  /// Writes the streams to `path`, video first, each list in its order,
  /// interleaved by time. Throws `IOException` naming the path and FFmpeg's
  /// reason (a container that can't hold the streams, as ".mp4" can't hold
  /// raw frames; a folder that isn't there).
  static void write(const std::string& path, const std::vector<Video>& video,
                    const std::vector<Audio>& audio);
};

}  // namespace KelMediaLib
