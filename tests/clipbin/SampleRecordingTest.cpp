#include "clipbin/SampleRecording.h"

#include "media/sources/MediaFileStats.h"
#include "support/ScratchFolder.h"
#include "support/VideoFrameReader.h"

#include <boost/filesystem.hpp>
#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <iterator>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <vector>

using OrvMediaLib::SampleRecording;

namespace {

std::string bytesOf(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

struct Box {
  int x, y, w, h;
  bool contains(int px, int py) const { return px >= x && px < x + w && py >= y && py < y + h; }
};

// A metadata file's records by frame: the numbers behind each time.
std::multimap<int, std::vector<double>> records(const std::string& path) {
  std::multimap<int, std::vector<double>> byFrame;
  std::ifstream in(path);
  std::string line;
  while (std::getline(in, line)) {
    if (line.empty() || line[0] == '#') continue;
    std::istringstream fields(line);
    double seconds = 0;
    fields >> seconds;
    std::vector<double> values;
    for (double value; fields >> value;) values.push_back(value);
    byFrame.emplace(static_cast<int>(std::llround(seconds * SampleRecording::framesPerSecond)),
                    values);
  }
  return byFrame;
}

// The bundles for the suite, written once: making one takes a moment.
class SampleRecordingTest : public ::testing::Test {
 public:
  static void SetUpTestSuite() {
    const std::string scratch = testsupport::scratchFolder("sample-recording");
    bundle() = SampleRecording::write(scratch + "/first");
    other() = SampleRecording::write(scratch + "/second/deeper");
  }
  static std::string& bundle() {
    static std::string path;
    return path;
  }
  static std::string& other() {
    static std::string path;
    return path;
  }
  static std::string file(const std::string& name) { return bundle() + "/" + name; }
};

TEST_F(SampleRecordingTest, SameBytesEveryRunWhereverWritten) {
  EXPECT_EQ(boost::filesystem::path(bundle()).filename().string(), "sample.vdpak");
  std::set<std::string> names;
  for (const auto& entry : boost::filesystem::directory_iterator(bundle())) {
    names.insert(entry.path().filename().string());
  }
  EXPECT_EQ(names,
            (std::set<std::string>{"audiotrack0.wav", "cursoraction.dat", "cursorlocation.dat",
                                   "dirtyrect.dat", "frontmost.dat", "project.xml", "screen.mov"}));
  for (const std::string& name : names) {
    EXPECT_EQ(bytesOf(file(name)), bytesOf(other() + "/" + name)) << name;
    EXPECT_EQ(boost::filesystem::last_write_time(file(name)),
              boost::filesystem::last_write_time(other() + "/" + name))
        << name;
  }
  // The project names its files within the bundle, not where it was made.
  EXPECT_EQ(bytesOf(file("project.xml")).find(bundle()), std::string::npos);
}

TEST_F(SampleRecordingTest, StreamsHaveTheAnnouncedShape) {
  const auto screen = KelMediaLib::MediaFileStats::create(file("screen.mov"));
  ASSERT_EQ(screen->trackStats().size(), 1u);
  EXPECT_EQ(screen->trackStats()[0].range, KelMediaLib::Range<long long>(0, 300));
  EXPECT_EQ(screen->trackStats()[0].editRate, KelMediaLib::EditRate(30, 1));
  EXPECT_EQ(screen->rect(), KelMediaLib::Rect<int>(0, 0, 1280, 720));
  EXPECT_LT(boost::filesystem::file_size(file("screen.mov")), 4u << 20);

  const auto sound = KelMediaLib::MediaFileStats::create(file("audiotrack0.wav"));
  ASSERT_EQ(sound->trackStats().size(), 1u);
  EXPECT_EQ(sound->trackStats()[0].range, KelMediaLib::Range<long long>(0, 480000));
  EXPECT_EQ(sound->trackStats()[0].sampleRate, KelMediaLib::EditRate(48000, 1));
  EXPECT_EQ(sound->trackStats()[0].numChannels, 1);
}

// The metadata tells the truth about the pictures: the cursor's tip is where
// the cursor file says, every pixel that changes lies in a changed rectangle
// of that frame or under the cursor, every changed rectangle changed, and
// the front window wears the active title colour.
TEST_F(SampleRecordingTest, MetaDataAgreesWithThePictures) {
  const auto cursor = records(file("cursorlocation.dat"));
  const auto dirty = records(file("dirtyrect.dat"));
  const auto front = records(file("frontmost.dat"));
  const auto clicks = records(file("cursoraction.dat"));
  ASSERT_EQ(clicks.size(), 3u);
  ASSERT_EQ(front.size(), 2u);

  // The cursor's tip at every frame, from the records at or before it.
  std::vector<std::pair<int, int>> tip(SampleRecording::frames);
  std::pair<int, int> last{-1, -1};
  for (int frame = 0; frame < SampleRecording::frames; ++frame) {
    const auto found = cursor.equal_range(frame);
    for (auto it = found.first; it != found.second; ++it) {
      last = {static_cast<int>(it->second[0]), static_cast<int>(it->second[1])};
    }
    tip[frame] = last;
  }
  ASSERT_EQ(tip[0].first >= 0, true) << "no cursor location at frame 0";
  // The arrow is drawn within 12 x 17 pixels right of and below its tip.
  auto underCursor = [&](int frame, int x, int y) {
    const auto& at = tip[frame];
    return x >= at.first && x < at.first + 12 && y >= at.second && y < at.second + 17;
  };

  std::vector<std::uint8_t> previous;
  int frame = 0;
  int unexplained = 0, unchanged = 0, untrueFront = 0;
  testsupport::forEachRgbPicture(file("screen.mov"), [&](const testsupport::RgbPicture& picture) {
    const auto* pixel = picture.at(tip[frame].first, tip[frame].second);
    EXPECT_TRUE(pixel[0] == 0 && pixel[1] == 0 && pixel[2] == 0) << "tip at frame " << frame;

    std::vector<Box> boxes;
    const auto found = dirty.equal_range(frame);
    for (auto it = found.first; it != found.second; ++it) {
      const auto& v = it->second;
      for (std::size_t i = 0; i < static_cast<std::size_t>(v[0]); ++i) {
        boxes.push_back(Box{static_cast<int>(v[1 + 4 * i]), static_cast<int>(v[2 + 4 * i]),
                            static_cast<int>(v[3 + 4 * i]), static_cast<int>(v[4 + 4 * i])});
      }
    }
    if (!previous.empty()) {
      std::vector<bool> boxChanged(boxes.size(), false);
      for (int y = 0; y < picture.height; ++y) {
        for (int x = 0; x < picture.width; ++x) {
          const std::size_t at = (static_cast<std::size_t>(y) * picture.width + x) * 3;
          if (std::equal(previous.begin() + at, previous.begin() + at + 3,
                         picture.pixels.begin() + at)) {
            continue;
          }
          bool explained = underCursor(frame, x, y) || underCursor(frame - 1, x, y);
          for (std::size_t b = 0; b < boxes.size(); ++b) {
            if (boxes[b].contains(x, y) && !underCursor(frame, x, y) &&
                !underCursor(frame - 1, x, y)) {
              boxChanged[b] = true;
            }
            explained = explained || boxes[b].contains(x, y);
          }
          unexplained += explained ? 0 : 1;
        }
      }
      for (bool changed : boxChanged) unchanged += changed ? 0 : 1;
    }

    // The front window in force: its title bar's middle shows it active.
    auto window = front.upper_bound(frame);
    if (window != front.begin()) {
      const auto& v = std::prev(window)->second;
      const auto* title = picture.at(static_cast<int>(v[0] + v[2] / 2), static_cast<int>(v[1] + 5));
      untrueFront += (title[0] == 176 && title[1] == 198 && title[2] == 230) ? 0 : 1;
    }
    previous = picture.pixels;
    ++frame;
  });
  EXPECT_EQ(frame, SampleRecording::frames);
  EXPECT_EQ(unexplained, 0) << "pixels changed outside the changed rectangles and the cursor";
  EXPECT_EQ(unchanged, 0) << "changed rectangles in which nothing changed";
  EXPECT_EQ(untrueFront, 0) << "frames whose front window doesn't look active";
}

}  // namespace
