#include "media/sources/MediaFileWriter.h"

#include "core/IOException.h"

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libavutil/channel_layout.h>
#include <libavutil/error.h>
#include <libavutil/frame.h>
#include <libavutil/mathematics.h>
}

#include <algorithm>
#include <cstring>
#include <memory>
#include <new>
#include <string>
#include <vector>

namespace KelMediaLib {

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

  void check(int code, const std::string& what) const {
    if (code < 0) {
      throw IOException("writing \"" + path_ + "\": " + what + ": " + reason(code));
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

struct CodecContextFree {
  void operator()(AVCodecContext* context) const { avcodec_free_context(&context); }
};
struct FrameFree {
  void operator()(AVFrame* frame) const { av_frame_free(&frame); }
};

void flatGrey(long long frame, std::uint8_t* rgb, int lineSize, int width, int height) {
  for (int row = 0; row < height; ++row) {
    std::memset(rgb + static_cast<std::ptrdiff_t>(row) * lineSize,
                static_cast<int>(frame * 16 % 256), static_cast<std::size_t>(width) * 3);
  }
}

void sawtooth(long long first, long long count, int channels, std::int16_t* out) {
  for (long long i = 0; i < count; ++i) {
    const auto sample = static_cast<std::int16_t>(((first + i) % 100) * 40 - 2000);
    std::fill(out + i * channels, out + (i + 1) * channels, sample);
  }
}

// One stream being written: its units (frames or samples), how many are
// written, and how they become packets.
class Feed {
 public:
  virtual ~Feed() = default;

  AVRational unit() const { return unit_; }
  long long written() const { return written_; }
  bool done() const { return written_ >= total_; }

  /// Writes the next packet's worth of units.
  virtual void writeNext(const Output& out) = 0;
  /// Writes what an encoder still holds.
  virtual void finish(const Output&) {}

 protected:
  Feed(AVStream* stream, AVRational unit, long long total)
      : stream_(stream), unit_(unit), total_(total) {}

  void send(const Output& out, AVPacket* packet, AVRational from) const {
    packet->stream_index = stream_->index;
    av_packet_rescale_ts(packet, from, stream_->time_base);
    out.check(av_interleaved_write_frame(out.context(), packet), "writing a packet failed");
  }

  AVStream* stream_;
  AVRational unit_;
  long long total_;
  long long written_ = 0;
  Packet packet_;
};

// Raw pictures or samples: each packet is the bytes themselves.
class RawFeed : public Feed {
 public:
  RawFeed(AVStream* stream, AVRational unit, long long total, long long unitsPerPacket,
          int bytesPerUnit, std::function<void(long long, long long, std::uint8_t*)> fill)
      : Feed(stream, unit, total),
        unitsPerPacket_(unitsPerPacket),
        bytesPerUnit_(bytesPerUnit),
        fill_(std::move(fill)) {}

  void writeNext(const Output& out) override {
    const long long units = std::min(unitsPerPacket_, total_ - written_);
    AVPacket* packet = packet_.get();
    out.check(av_new_packet(packet, static_cast<int>(units * bytesPerUnit_)),
              "no memory for a packet");
    fill_(written_, units, packet->data);
    packet->pts = written_;
    packet->dts = written_;
    packet->duration = units;
    packet->flags |= AV_PKT_FLAG_KEY;
    written_ += units;
    send(out, packet, unit_);
  }

 private:
  long long unitsPerPacket_;
  int bytesPerUnit_;
  std::function<void(long long, long long, std::uint8_t*)> fill_;
};

// Pictures through an encoder: one frame in, what packets it gives out.
class EncodedVideoFeed : public Feed {
 public:
  EncodedVideoFeed(const Output& out, const MediaFileWriter::Video& spec,
                   MediaFileWriter::DrawFrame draw)
      : Feed(out.newStream(),
             av_inv_q(AVRational{spec.frameRate.numerator, spec.frameRate.denominator}),
             spec.frames),
        draw_(std::move(draw)) {
    const AVCodec* codec = avcodec_find_encoder(AV_CODEC_ID_QTRLE);
    if (!codec) {
      out.check(AVERROR_ENCODER_NOT_FOUND, "QuickTime Animation");
    }
    context_.reset(avcodec_alloc_context3(codec));
    frame_.reset(av_frame_alloc());
    if (!context_ || !frame_) {
      throw std::bad_alloc();
    }
    AVCodecContext& c = *context_;
    c.width = spec.width;
    c.height = spec.height;
    c.pix_fmt = AV_PIX_FMT_RGB24;
    c.time_base = unit_;
    c.framerate = av_inv_q(unit_);
    // A key frame a second: a player can start anywhere within a second.
    c.gop_size = std::max(1, static_cast<int>(av_q2d(c.framerate) + 0.5));
    c.flags |= AV_CODEC_FLAG_BITEXACT;
    if (out.context()->oformat->flags & AVFMT_GLOBALHEADER) {
      c.flags |= AV_CODEC_FLAG_GLOBAL_HEADER;
    }
    out.check(avcodec_open2(&c, codec, nullptr), "the encoder refuses the pictures");
    out.check(avcodec_parameters_from_context(stream_->codecpar, &c), "the encoder's parameters");
    stream_->time_base = unit_;
    stream_->avg_frame_rate = c.framerate;
    stream_->r_frame_rate = c.framerate;
    frame_->format = c.pix_fmt;
    frame_->width = c.width;
    frame_->height = c.height;
    out.check(av_frame_get_buffer(frame_.get(), 0), "no memory for a picture");
  }

  void writeNext(const Output& out) override {
    // The encoder may still hold the last frame: it compares with it.
    out.check(av_frame_make_writable(frame_.get()), "no memory for a picture");
    draw_(written_, frame_->data[0], frame_->linesize[0]);
    frame_->pts = written_;
    ++written_;
    out.check(avcodec_send_frame(context_.get(), frame_.get()), "encoding a picture failed");
    drain(out);
  }

  void finish(const Output& out) override {
    out.check(avcodec_send_frame(context_.get(), nullptr), "finishing the pictures failed");
    drain(out);
  }

 private:
  void drain(const Output& out) {
    for (;;) {
      const int code = avcodec_receive_packet(context_.get(), packet_.get());
      if (code == AVERROR(EAGAIN) || code == AVERROR_EOF) {
        return;
      }
      out.check(code, "encoding a picture failed");
      send(out, packet_.get(), context_->time_base);
    }
  }

  MediaFileWriter::DrawFrame draw_;
  std::unique_ptr<AVCodecContext, CodecContextFree> context_;
  std::unique_ptr<AVFrame, FrameFree> frame_;
};

std::unique_ptr<Feed> rawVideo(const Output& out, const MediaFileWriter::Video& spec,
                               MediaFileWriter::DrawFrame draw) {
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
  const int lineSize = spec.width * 3;
  return std::unique_ptr<Feed>(
      new RawFeed(stream, av_inv_q(rate), spec.frames, 1, lineSize * spec.height,
                  [draw, lineSize](long long first, long long, std::uint8_t* data) {
                    draw(first, data, lineSize);
                  }));
}

std::unique_ptr<Feed> video(const Output& out, const MediaFileWriter::Video& spec) {
  if (spec.width <= 0 || spec.height <= 0 || spec.frameRate.numerator <= 0 ||
      spec.frameRate.denominator <= 0 || spec.frames < 0) {
    out.check(AVERROR(EINVAL), "pictures need a size and a rate");
  }
  MediaFileWriter::DrawFrame draw = spec.draw;
  if (!draw) {
    const int width = spec.width;
    const int height = spec.height;
    draw = [width, height](long long frame, std::uint8_t* rgb, int lineSize) {
      flatGrey(frame, rgb, lineSize, width, height);
    };
  }
  if (spec.codec == MediaFileWriter::Codec::Animation) {
    return std::unique_ptr<Feed>(new EncodedVideoFeed(out, spec, std::move(draw)));
  }
  return rawVideo(out, spec, std::move(draw));
}

std::unique_ptr<Feed> audio(const Output& out, const MediaFileWriter::Audio& spec) {
  if (spec.sampleRate <= 0 || spec.channels <= 0 || spec.samples < 0) {
    out.check(AVERROR(EINVAL), "sound needs a rate and channels");
  }
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
  const int channels = spec.channels;
  MediaFileWriter::FillSamples fill = spec.fill;
  if (!fill) {
    fill = [channels](long long first, long long count, std::int16_t* out) {
      sawtooth(first, count, channels, out);
    };
  }
  return std::unique_ptr<Feed>(
      new RawFeed(stream, unit, spec.samples, 1024, 2 * channels,
                  [fill, channels](long long first, long long count, std::uint8_t* data) {
                    // Samples are made in the machine's order and stored little-endian,
                    // as the container wants them.
                    std::vector<std::int16_t> samples(static_cast<std::size_t>(count * channels));
                    fill(first, count, samples.data());
                    for (std::size_t i = 0; i < samples.size(); ++i) {
                      const auto bits = static_cast<std::uint16_t>(samples[i]);
                      data[2 * i] = static_cast<std::uint8_t>(bits & 0xff);
                      data[2 * i + 1] = static_cast<std::uint8_t>(bits >> 8);
                    }
                  }));
}

// The stream whose next packet starts first; null when all are done.
Feed* nextFeed(const std::vector<std::unique_ptr<Feed>>& feeds) {
  Feed* next = nullptr;
  for (const auto& feed : feeds) {
    if (!feed->done() && (!next || av_compare_ts(feed->written(), feed->unit(), next->written(),
                                                 next->unit()) < 0)) {
      next = feed.get();
    }
  }
  return next;
}

}  // namespace

void MediaFileWriter::write(const std::string& path, const std::vector<Video>& videoStreams,
                            const std::vector<Audio>& audioStreams) {
  Output out(path);
  AVFormatContext* context = out.context();
  context->flags |= AVFMT_FLAG_BITEXACT;
  std::vector<std::unique_ptr<Feed>> feeds;
  for (const Video& spec : videoStreams) {
    feeds.push_back(video(out, spec));
  }
  for (const Audio& spec : audioStreams) {
    feeds.push_back(audio(out, spec));
  }
  // The "file:" prefix keeps a name with a colon from naming a protocol.
  out.check(avio_open(&context->pb, ("file:" + path).c_str(), AVIO_FLAG_WRITE), "can't open");
  out.check(avformat_write_header(context, nullptr), "the container refuses the streams");
  while (Feed* feed = nextFeed(feeds)) {
    feed->writeNext(out);
  }
  for (const auto& feed : feeds) {
    feed->finish(out);
  }
  out.check(av_write_trailer(context), "finishing the file failed");
}

}  // namespace KelMediaLib
