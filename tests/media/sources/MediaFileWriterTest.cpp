#include "media/sources/MediaFileWriter.h"

#include "core/IOException.h"
#include "media/media/MediaTestSupport.h"
#include "media/sources/FFmpegStatsLoader.h"
#include "media/sources/MediaFileStats.h"
#include "support/ScratchFolder.h"
#include "support/VideoFrameReader.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>

using namespace KelMediaLib;

namespace {

std::string bytesOf(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

// A picture in which every pixel differs from its neighbours and from the
// same pixel of the frame before: a row or a frame out of place shows.
void gradient(long long frame, std::uint8_t* rgb, int lineSize, int width, int height) {
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      std::uint8_t* pixel = rgb + y * lineSize + 3 * x;
      pixel[0] = static_cast<std::uint8_t>(x * 3 + frame);
      pixel[1] = static_cast<std::uint8_t>(y * 5);
      pixel[2] = static_cast<std::uint8_t>(x ^ y ^ static_cast<int>(frame));
    }
  }
}

struct Case {
  const char* name;
  MediaFileWriter::Codec codec;
  int width, height;
};

class MediaFileWriterCodecTest : public ::testing::TestWithParam<Case> {};

TEST_P(MediaFileWriterCodecTest, PicturesReadBackExactlyAndTheFileIsTheSameEveryRun) {
  const Case c = GetParam();
  const std::string folder = testsupport::scratchFolder("media-file-writer");
  MediaFileWriter::Video video{c.width, c.height, {25, 1}, 7, c.codec};
  video.draw = [c](long long frame, std::uint8_t* rgb, int lineSize) {
    gradient(frame, rgb, lineSize, c.width, c.height);
  };
  const std::string first = folder + "/" + c.name + "-1.mov";
  const std::string second = folder + "/" + c.name + "-2.mov";
  MediaFileWriter::write(first, {video}, {{8000, 2, 3000}});
  MediaFileWriter::write(second, {video}, {{8000, 2, 3000}});
  EXPECT_EQ(bytesOf(first), bytesOf(second));

  const auto pictures = testsupport::readRgbPictures(first);
  ASSERT_EQ(pictures.size(), 7u);
  std::vector<std::uint8_t> expected(static_cast<std::size_t>(c.width * c.height * 3));
  for (int frame = 0; frame < 7; ++frame) {
    gradient(frame, expected.data(), c.width * 3, c.width, c.height);
    EXPECT_EQ(pictures[frame].pixels, expected) << "frame " << frame;
  }

  const auto stats = MediaFileStats::create();
  FFmpegStatsLoader().loadStats(first, stats.get());
  ASSERT_EQ(stats->trackStats().size(), 2u);
  const auto& picture = stats->trackStats()[0];
  EXPECT_EQ(picture.range, Range<long long>(0, 7));
  EXPECT_EQ(picture.editRate, EditRate(25, 1));
  EXPECT_EQ(picture.trackRect, Rect<int>(0, 0, c.width, c.height));
  const auto& sound = stats->trackStats()[1];
  EXPECT_EQ(sound.range, Range<long long>(0, 3000));
  EXPECT_EQ(sound.numChannels, 2);
}

// An odd width gives the encoder's rows padding that the raw rows lack.
INSTANTIATE_TEST_SUITE_P(
    Codecs, MediaFileWriterCodecTest,
    ::testing::Values(Case{"raw", MediaFileWriter::Codec::Raw, 33, 20},
                      Case{"animation", MediaFileWriter::Codec::Animation, 33, 20}),
    [](const ::testing::TestParamInfo<Case>& info) { return std::string(info.param.name); });

TEST(MediaFileWriterTest, SamplesAreStoredAsFilledLittleEndian) {
  const std::string path = testsupport::scratchFolder("media-file-writer") + "/ramp.wav";
  MediaFileWriter::write(path, {},
                         {{8000, 1, 4, [](long long first, long long count, int16_t* out) {
                             for (long long i = 0; i < count; ++i)
                               out[i] = static_cast<int16_t>((-2 + first + i) * 300);
                           }}});
  const std::string bytes = bytesOf(path);
  ASSERT_GE(bytes.size(), 8u);
  // -600, -300, 0, 300 at the end of the file.
  EXPECT_EQ(bytes.substr(bytes.size() - 8), std::string("\xa8\xfd\xd4\xfe\x00\x00\x2c\x01", 8));
}

TEST(MediaFileWriterTest, RefusalsNameTheFile) {
  const std::string folder = testsupport::scratchFolder("media-file-writer");
  const struct {
    std::string path;
    std::vector<MediaFileWriter::Video> video;
    const char* reason;
  } cases[] = {
      {folder + "/raw.mp4", {{16, 16, {25, 1}, 1}}, "refuses the streams"},
      {folder + "/missing/clip.mov", {{16, 16, {25, 1}, 1}}, "can't open"},
      {folder + "/norate.mov", {{16, 16, {0, 1}, 1}}, "need a size and a rate"},
  };
  for (const auto& c : cases) {
    const std::string text =
        mediatest::whatOf<IOException>([&] { MediaFileWriter::write(c.path, c.video, {}); });
    EXPECT_NE(text.find("IOException: writing \"" + c.path + "\""), std::string::npos) << c.path;
    EXPECT_NE(text.find(c.reason), std::string::npos) << text;
  }
}

}  // namespace
