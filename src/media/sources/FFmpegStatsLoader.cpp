#include "media/sources/FFmpegStatsLoader.h"

#include "core/KelMediaLibException.h"
#include "media/sources/MediaFileStats.h"

#include <boost/filesystem.hpp>

extern "C" {
#include <libavformat/avformat.h>
#include <libavutil/mathematics.h>
#include <libavutil/rational.h>
#include <libavutil/samplefmt.h>
}

#include <cstring>
#include <string>

namespace KelMediaLib {

namespace {

// A stream whose pictures have a size or whose sound has a rate: what the
// probe couldn't make sense of (a file that merely bears a picture's name)
// is no track.
bool usable(const AVCodecParameters& codec) {
  if (codec.codec_type == AVMEDIA_TYPE_VIDEO) {
    return codec.width > 0 && codec.height > 0;
  }
  if (codec.codec_type == AVMEDIA_TYPE_AUDIO) {
    return codec.sample_rate > 0 && codec.ch_layout.nb_channels > 0;
  }
  return false;
}

// An opened and probed input, closed on every way out. Anything but a
// regular file is refused up front: libavformat would as readily open a
// URL, a device or a pipe.
class Input {
 public:
  explicit Input(const std::string& path) : context_(nullptr) {
    boost::system::error_code error;
    if (!boost::filesystem::is_regular_file(path, error)) {
      return;
    }
    // The "file:" prefix keeps a name with a colon from naming a protocol.
    const std::string url = "file:" + path;
    if (avformat_open_input(&context_, url.c_str(), nullptr, nullptr) < 0) {
      context_ = nullptr;
      return;
    }
    if (avformat_find_stream_info(context_, nullptr) < 0) {
      avformat_close_input(&context_);
    }
  }
  ~Input() {
    if (context_) {
      avformat_close_input(&context_);
    }
  }
  Input(const Input&) = delete;
  Input& operator=(const Input&) = delete;

  AVFormatContext* context() const { return context_; }

  bool hasTracks() const {
    if (!context_) {
      return false;
    }
    for (unsigned int i = 0; i < context_->nb_streams; ++i) {
      if (usable(*context_->streams[i]->codecpar)) {
        return true;
      }
    }
    return false;
  }

 private:
  AVFormatContext* context_;
};

bool endsWith(const char* text, const char* tail) {
  const std::size_t length = std::strlen(text);
  const std::size_t tailLength = std::strlen(tail);
  return length >= tailLength && std::strcmp(text + length - tailLength, tail) == 0;
}

// Picture files come through the image demuxers ("image2", "png_pipe" and
// their kin); a cover picture in a sound file is flagged as attached.
bool isStill(const AVFormatContext& context, const AVStream& stream) {
  const char* demuxer = context.iformat->name;
  return std::strcmp(demuxer, "image2") == 0 || endsWith(demuxer, "_pipe") ||
         (stream.disposition & AV_DISPOSITION_ATTACHED_PIC) != 0;
}

bool valid(AVRational rate) {
  return rate.num > 0 && rate.den > 0;
}

// The stream's length in units of `rate`: the counted frames when the
// container knows them, else the stream's duration, else the file's.
long long lengthIn(const AVFormatContext& context, const AVStream& stream, AVRational rate,
                   bool countFrames) {
  if (countFrames && stream.nb_frames > 0) {
    return stream.nb_frames;
  }
  const AVRational unit = av_inv_q(rate);
  if (stream.duration != AV_NOPTS_VALUE && stream.duration > 0) {
    return av_rescale_q_rnd(stream.duration, stream.time_base, unit, AV_ROUND_NEAR_INF);
  }
  if (context.duration != AV_NOPTS_VALUE && context.duration > 0) {
    return av_rescale_q_rnd(context.duration, AV_TIME_BASE_Q, unit, AV_ROUND_NEAR_INF);
  }
  return 0;
}

int bitDepthOf(const AVCodecParameters& codec) {
  if (codec.bits_per_raw_sample > 0) {
    return codec.bits_per_raw_sample;
  }
  if (codec.bits_per_coded_sample > 0) {
    return codec.bits_per_coded_sample;
  }
  const int bytes = av_get_bytes_per_sample(static_cast<AVSampleFormat>(codec.format));
  return bytes > 0 ? bytes * 8 : 0;
}

EditRate editRateOf(AVRational rate) {
  return EditRate(static_cast<unsigned long>(rate.num), static_cast<unsigned long>(rate.den));
}

}  // namespace

bool FFmpegStatsLoader::canOpenFile(const std::string& path) {
  return Input(path).hasTracks();
}

void FFmpegStatsLoader::loadStats(const std::string& path, MediaFileStats* stats) {
  if (!stats) {
    throw KelMediaLibException("FFmpeg stats loader: no stats to fill for \"" + path + "\"");
  }
  Input input(path);
  if (!input.hasTracks()) {
    throw KelMediaLibException("FFmpeg stats loader: can't open \"" + path +
                               "\" as a video, audio or picture file");
  }
  AVFormatContext& context = *input.context();
  bool haveRect = false;
  for (unsigned int i = 0; i < context.nb_streams; ++i) {
    AVStream& stream = *context.streams[i];
    const AVCodecParameters& codec = *stream.codecpar;
    MediaFileStats::TrackStats track;
    if (!usable(codec)) {
      continue;
    }
    if (codec.codec_type == AVMEDIA_TYPE_VIDEO) {
      track.trackRect = Rect<int>(0, 0, codec.width, codec.height);
      if (isStill(context, stream)) {
        track.type = MediaFileStats::Image;
      } else {
        AVRational rate = av_guess_frame_rate(&context, &stream, nullptr);
        if (!valid(rate)) {
          throw KelMediaLibException("FFmpeg stats loader: stream " + std::to_string(i) + " of \"" +
                                     path + "\" has no frame rate");
        }
        track.type = MediaFileStats::Video;
        track.editRate = editRateOf(rate);
        track.range = Range<long long>(0, lengthIn(context, stream, rate, true));
      }
      if (!haveRect) {
        stats->setRect(track.trackRect);
        haveRect = true;
      }
    } else {
      const AVRational rate{codec.sample_rate, 1};
      track.type = MediaFileStats::Audio;
      track.bitDepth = bitDepthOf(codec);
      track.numChannels = codec.ch_layout.nb_channels;
      track.sampleRate = editRateOf(rate);
      track.editRate = track.sampleRate;
      track.range = Range<long long>(0, lengthIn(context, stream, rate, false));
    }
    stats->addTrackStats(track);
  }
  stats->setFilename(path);
  boost::system::error_code error;
  const std::time_t changed = boost::filesystem::last_write_time(path, error);
  if (!error) {
    stats->setLastModified(changed);
  }
}

std::string FFmpegStatsLoader::description() const {
  return "FFmpegStatsLoader";
}

}  // namespace KelMediaLib
