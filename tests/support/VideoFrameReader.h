#pragma once

// Decodes the pictures of a video file written as RGB, to check what a
// writer put in them pixel by pixel.

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
}

#include <cstdint>
#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

namespace testsupport {

/// One decoded picture, rows packed, 3 bytes a pixel.
struct RgbPicture {
  int width = 0;
  int height = 0;
  std::vector<std::uint8_t> pixels;

  const std::uint8_t* at(int x, int y) const { return &pixels[(y * width + x) * 3]; }
};

/// Hands each picture of the first video stream of `path` to `take`, in
/// order, one at a time. Throws `std::runtime_error` on a file that doesn't
/// decode to RGB.
inline void forEachRgbPicture(const std::string& path,
                              const std::function<void(const RgbPicture&)>& take) {
  AVFormatContext* format = nullptr;
  if (avformat_open_input(&format, ("file:" + path).c_str(), nullptr, nullptr) < 0)
    throw std::runtime_error("can't open " + path);
  AVCodecContext* codec = nullptr;
  AVPacket* packet = av_packet_alloc();
  AVFrame* frame = av_frame_alloc();
  std::string failure;
  RgbPicture picture;
  const int stream = av_find_best_stream(format, AVMEDIA_TYPE_VIDEO, -1, -1, nullptr, 0);
  if (stream < 0) {
    failure = "no video stream";
  } else {
    const AVCodecParameters* parameters = format->streams[stream]->codecpar;
    codec = avcodec_alloc_context3(avcodec_find_decoder(parameters->codec_id));
    avcodec_parameters_to_context(codec, parameters);
    if (avcodec_open2(codec, nullptr, nullptr) < 0) failure = "no decoder";
  }
  auto receive = [&]() {
    while (failure.empty() && avcodec_receive_frame(codec, frame) == 0) {
      if (frame->format != AV_PIX_FMT_RGB24) {
        failure = "pictures aren't RGB";
        break;
      }
      picture.pixels.clear();
      picture.width = frame->width;
      picture.height = frame->height;
      for (int y = 0; y < frame->height; ++y) {
        const std::uint8_t* row = frame->data[0] + y * frame->linesize[0];
        picture.pixels.insert(picture.pixels.end(), row, row + 3 * frame->width);
      }
      take(picture);
    }
  };
  while (failure.empty() && av_read_frame(format, packet) >= 0) {
    if (packet->stream_index == stream && avcodec_send_packet(codec, packet) == 0) receive();
    av_packet_unref(packet);
  }
  if (failure.empty() && avcodec_send_packet(codec, nullptr) == 0) receive();
  av_frame_free(&frame);
  av_packet_free(&packet);
  avcodec_free_context(&codec);
  avformat_close_input(&format);
  if (!failure.empty()) throw std::runtime_error(path + ": " + failure);
}

/// All pictures of the first video stream of `path`, in order.
inline std::vector<RgbPicture> readRgbPictures(const std::string& path) {
  std::vector<RgbPicture> pictures;
  forEachRgbPicture(path, [&](const RgbPicture& picture) { pictures.push_back(picture); });
  return pictures;
}

}  // namespace testsupport
