#include "core/KelMediaLibException.h"
#include "media/sources/MediaFileStats.h"
#include "media/sources/StatsLoader.h"

#include <boost/filesystem.hpp>
#include <boost/make_shared.hpp>
#include <gtest/gtest.h>

#include <string>

using namespace KelMediaLib;

namespace {

std::string dataFile(const std::string& name) {
  return std::string(ORV_TEST_DATA_DIR) + "/" + name;
}

TEST(FFmpegStatsLoaderTest, ProbesVideoSoundAndPictures) {
  struct Case {
    const char* file;
    MediaFileStats::TrackType type;
    Rect<int> rect;
    EditRate editRate;
    Range<long long> range;
    EditRate sampleRate;
    int bitDepth;
    int numChannels;
  };
  const Case cases[] = {
      {"clip.mp4", MediaFileStats::Video, Rect<int>(0, 0, 64, 48), EditRate(10),
       Range<long long>(0, 10), EditRate(0), 0, 0},
      {"tone.wav", MediaFileStats::Audio, Rect<int>(), EditRate(8000), Range<long long>(0, 2000),
       EditRate(8000), 16, 1},
      {"still.png", MediaFileStats::Image, Rect<int>(0, 0, 32, 24), EditRate(0),
       Range<long long>(0, 0), EditRate(0), 0, 0},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.file);
    const std::string path = dataFile(c.file);
    const boost::shared_ptr<MediaFileStats> stats = MediaFileStats::create(path);
    EXPECT_EQ(path, stats->filename());
    EXPECT_EQ(boost::filesystem::last_write_time(path), stats->lastModified());
    EXPECT_EQ(c.rect, stats->rect());
    ASSERT_EQ(1u, stats->trackStats().size());
    const MediaFileStats::TrackStats& track = stats->trackStats()[0];
    EXPECT_EQ(c.type, track.type);
    EXPECT_EQ(c.rect, track.trackRect);
    EXPECT_EQ(c.editRate, track.editRate);
    EXPECT_EQ(c.range, track.range);
    EXPECT_EQ(c.sampleRate, track.sampleRate);
    EXPECT_EQ(c.bitDepth, track.bitDepth);
    EXPECT_EQ(c.numChannels, track.numChannels);
  }
}

// Opens the paths with its suffix and marks the stats it fills with its tag.
class FakeLoader : public StatsLoader {
 public:
  FakeLoader(std::string suffix, int tag) : suffix_(std::move(suffix)), tag_(tag) {}
  bool canOpenFile(const std::string& path) override {
    return path.size() >= suffix_.size() &&
           path.compare(path.size() - suffix_.size(), suffix_.size(), suffix_) == 0;
  }
  void loadStats(const std::string&, MediaFileStats* stats) override {
    MediaFileStats::TrackStats track;
    track.type = MediaFileStats::Audio;
    track.bitDepth = tag_;
    stats->addTrackStats(track);
  }

 private:
  std::string suffix_;
  int tag_;
};

int loadedBy(const std::string& path) {
  return MediaFileStats::create(path)->trackStats().at(0).bitDepth;
}

TEST(StatsLoaderTest, RegisteredLoadersAreAskedInOrderBeforeTheDefault) {
  const std::string wave = dataFile("tone.wav");
  const auto first = boost::make_shared<FakeLoader>(".wav", 101);
  const auto second = boost::make_shared<FakeLoader>("", 102);
  StatsLoader::registerLoader(first);
  StatsLoader::registerLoader(second);
  const std::vector<boost::shared_ptr<StatsLoader>> order = StatsLoader::loaders();
  ASSERT_EQ(3u, order.size());
  EXPECT_EQ(first, order[0]);
  EXPECT_EQ(second, order[1]);
  EXPECT_EQ("FFmpegStatsLoader", order[2]->description());

  EXPECT_EQ(101, loadedBy(wave));
  EXPECT_EQ(102, loadedBy("/anything/at/all.xyz"));
  EXPECT_THROW(StatsLoader::registerLoader(first), KelMediaLibException);
  EXPECT_THROW(StatsLoader::registerLoader(order[2]), KelMediaLibException);

  StatsLoader::unregisterLoader(first.get());
  EXPECT_EQ(102, loadedBy(wave));
  StatsLoader::unregisterLoader(second.get());
  EXPECT_EQ(16, loadedBy(wave));
  EXPECT_THROW(StatsLoader::unregisterLoader(second.get()), KelMediaLibException);
  EXPECT_EQ(1u, StatsLoader::loaders().size());
}

}  // namespace
