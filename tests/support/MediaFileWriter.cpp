#include "support/MediaFileWriter.h"

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libavutil/channel_layout.h>
#include <libavutil/error.h>
#include <libavutil/mathematics.h>
}

#include <cstdint>
#include <algorithm>
#include <cstring>
#include <new>
#include <stdexcept>
#include <string>
#include <vector>

namespace testsupport {

namespace {

std::string reason(int code) {
  char text[AV_ERROR_MAX_STRING_SIZE] = {};
  av_strerror(code, text, sizeof text);
  return text;
}

// An output context and its file, closed and freed on every way out.
class Output {
 public:
  explicit Output(const std::string& path) : path_(path) {
    check(avformat_alloc_output_context2(&context_, nullptr, nullptr, path.c_str()),
          "no container for its extension");
  }
  ~Output() {
    if (context_->pb) {
      avio_closep(&context_->pb);
    }
    avformat_free_context(context_);
  }
  Output(const Output&) = delete;
  Output& operator=(const Output&) = delete;

  AVFormatContext* context() const { return context_; }

  AVStream* newStream() const {
    AVStream* stream = avformat_new_stream(context_, nullptr);
    if (!stream) {
      throw std::bad_alloc();
    }
    return stream;
  }

  void check(int code, const char* what) const {
    if (code < 0) {
      throw std::runtime_error("writing \"" + path_ + "\": " + what + ": " + reason(code));
    }
  }

 private:
  std::string path_;
  AVFormatContext* context_ = nullptr;
};

class Packet {
 public:
  Packet() : packet_(av_packet_alloc()) {
    if (!packet_) {
      throw std::bad_alloc();
    }
  }
  ~Packet() { av_packet_free(&packet_); }
  Packet(const Packet&) = delete;
  Packet& operator=(const Packet&) = delete;

  AVPacket* get() const { return packet_; }

 private:
  AVPacket* packet_;
};

// One stream being written: its units (frames or samples), how many are
// written, and how each packet's bytes are made.
struct Feed {
  AVStream* stream;
  AVRational unit;
  long long written;
  long long total;
  long long unitsPerPacket;
  int bytesPerUnit;
  bool video;
};

void fill(const Feed& feed, long long first, long long units, uint8_t* data) {
  if (feed.video) {
    std::memset(data, static_cast<int>(first * 16 % 256),
                static_cast<std::size_t>(units) * static_cast<std::size_t>(feed.bytesPerUnit));
    return;
  }
  const int channels = feed.bytesPerUnit / 2;
  for (long long i = 0; i < units; ++i) {
    const auto sample = static_cast<int16_t>(((first + i) % 100) * 40 - 2000);
    for (int channel = 0; channel < channels; ++channel) {
      std::memcpy(data + (i * channels + channel) * 2, &sample, 2);
    }
  }
}

Feed addVideo(const Output& out, const VideoStream& spec) {
  AVStream* stream = out.newStream();
  AVCodecParameters& codec = *stream->codecpar;
  codec.codec_type = AVMEDIA_TYPE_VIDEO;
  codec.codec_id = AV_CODEC_ID_RAWVIDEO;
  codec.format = AV_PIX_FMT_RGB24;
  codec.width = spec.width;
  codec.height = spec.height;
  codec.bits_per_coded_sample = 24;
  const AVRational rate{spec.frameRate.numerator, spec.frameRate.denominator};
  stream->avg_frame_rate = rate;
  stream->r_frame_rate = rate;
  stream->time_base = av_inv_q(rate);
  return Feed{stream, av_inv_q(rate), 0, spec.frames, 1, spec.width * spec.height * 3, true};
}

Feed addAudio(const Output& out, const AudioStream& spec) {
  AVStream* stream = out.newStream();
  AVCodecParameters& codec = *stream->codecpar;
  codec.codec_type = AVMEDIA_TYPE_AUDIO;
  codec.codec_id = AV_CODEC_ID_PCM_S16LE;
  codec.format = AV_SAMPLE_FMT_S16;
  codec.sample_rate = spec.sampleRate;
  av_channel_layout_default(&codec.ch_layout, spec.channels);
  codec.bits_per_coded_sample = 16;
  codec.block_align = 2 * spec.channels;
  codec.bit_rate = 16LL * spec.sampleRate * spec.channels;
  const AVRational unit{1, spec.sampleRate};
  stream->time_base = unit;
  return Feed{stream, unit, 0, spec.samples, 1024, 2 * spec.channels, false};
}

// The stream whose next packet starts first; null when all are done.
Feed* nextFeed(std::vector<Feed>& feeds) {
  Feed* next = nullptr;
  for (Feed& feed : feeds) {
    if (feed.written < feed.total &&
        (!next || av_compare_ts(feed.written, feed.unit, next->written, next->unit) < 0)) {
      next = &feed;
    }
  }
  return next;
}

}  // namespace

void writeMediaFile(const std::string& path, const MediaFile& file) {
  Output out(path);
  AVFormatContext* context = out.context();
  // The same file every run: no encoder name or creation time in it.
  context->flags |= AVFMT_FLAG_BITEXACT;
  std::vector<Feed> feeds;
  for (const VideoStream& video : file.video) {
    feeds.push_back(addVideo(out, video));
  }
  for (const AudioStream& audio : file.audio) {
    feeds.push_back(addAudio(out, audio));
  }
  // The "file:" prefix keeps a name with a colon from naming a protocol.
  out.check(avio_open(&context->pb, ("file:" + path).c_str(), AVIO_FLAG_WRITE), "can't open");
  out.check(avformat_write_header(context, nullptr), "the container refuses the streams");
  Packet packet;
  while (Feed* feed = nextFeed(feeds)) {
    const long long units = std::min(feed->unitsPerPacket, feed->total - feed->written);
    out.check(av_new_packet(packet.get(), static_cast<int>(units * feed->bytesPerUnit)),
              "no memory for a packet");
    fill(*feed, feed->written, units, packet.get()->data);
    packet.get()->pts = feed->written;
    packet.get()->dts = feed->written;
    packet.get()->duration = units;
    packet.get()->stream_index = feed->stream->index;
    packet.get()->flags |= AV_PKT_FLAG_KEY;
    av_packet_rescale_ts(packet.get(), feed->unit, feed->stream->time_base);
    feed->written += units;
    out.check(av_interleaved_write_frame(context, packet.get()), "writing a packet failed");
  }
  out.check(av_write_trailer(context), "finishing the file failed");
}

}  // namespace testsupport
