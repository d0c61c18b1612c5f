#include "core/Attribute.h"
#include "core/KelMediaLibException.h"
#include "media/commands/LoadSourceCmd.h"
#include "media/media/AMFile.h"
#include "media/media/IMFile.h"
#include "media/media/MediaTestSupport.h"
#include "media/media/VMFile.h"
#include "media/metadata/ScreenMetaData.h"
#include "media/project/InternalProject.h"
#include "media/sources/FFmpegStatsLoader.h"
#include "media/sources/MediaFileStats.h"
#include "media/sources/MediaFileWriter.h"
#include "media/sources/Source.h"
#include "media/sources/StatsLoader.h"
#include "support/ScratchFolder.h"

#include <boost/filesystem.hpp>
#include <boost/make_shared.hpp>
#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <limits>
#include <sstream>
#include <string>

using namespace KelMediaLib;

namespace {

// Media files of known length, written once for the whole suite.
class SourceTimeTest : public ::testing::Test {
 public:
  static void SetUpTestSuite() {
    folder() = testsupport::scratchFolder("source-time-test");
    boost::filesystem::create_directories(folder());
    MediaFileWriter::write(path("tone44100.wav"), {}, {{44100, 1, 11025}});
    MediaFileWriter::write(path("tone48000.wav"), {}, {{48000, 2, 20020}});
    MediaFileWriter::write(path("clip25.mov"), {{64, 48, {25, 1}, 10}}, {});
    MediaFileWriter::write(path("clip2997.mov"), {{64, 48, {30000, 1001}, 15}}, {});
  }

  static std::string& folder() {
    static std::string name;
    return name;
  }
  static std::string path(const std::string& name) { return folder() + "/" + name; }

  // The one media of the file, loaded through the history of a project at
  // `rate`.
  static boost::shared_ptr<const Media> load(const std::string& file, const EditRate& rate,
                                             boost::shared_ptr<InternalProject>& project) {
    project = InternalProject::create(rate);
    const auto command = LoadSourceCmd::create(file);
    project->execute(command);
    EXPECT_EQ(1u, command->source()->media().size());
    return command->source()->media().front();
  }
};

TEST_F(SourceTimeTest, MediaLastTheirFilesDurationInProjectEditUnits) {
  const EditRate film(24000, 1001);
  struct Case {
    std::string file;
    long long units;  // frames or samples
    EditRate unitRate;
    EditRate projectRate;
    long long expected;
  };
  const Case cases[] = {
      {"tone44100.wav", 11025, EditRate(44100), EditRate(30), 8},     // 7.5
      {"tone44100.wav", 11025, EditRate(44100), film, 6},             // 5.994
      {"tone48000.wav", 20020, EditRate(48000), EditRate(30), 13},    // 12.5125
      {"tone48000.wav", 20020, EditRate(48000), film, 10},            // exactly 10
      {"clip25.mov", 10, EditRate(25), EditRate(30), 12},             // exactly 12
      {"clip25.mov", 10, EditRate(25), film, 10},                     // 9.59
      {"clip2997.mov", 15, EditRate(30000, 1001), EditRate(30), 15},  // 15.015
      {"clip2997.mov", 15, EditRate(30000, 1001), film, 12},          // exactly 12
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.file + " at " + std::to_string(c.projectRate.numerator()));
    boost::shared_ptr<InternalProject> project;
    const auto media = load(path(c.file), c.projectRate, project);
    const auto file = boost::dynamic_pointer_cast<const FileRepresentation>(media);
    ASSERT_TRUE(file);
    // The stats keep the file's own units; the media are in edit units.
    const MediaFileStats::TrackStats& track = file->source()->mediaFileStats()->trackStats()[0];
    EXPECT_EQ(Range<long long>(0, c.units), track.range);
    EXPECT_EQ(c.unitRate, track.editRate);
    EXPECT_EQ(Range<long long>(0, c.expected), media->range());
    EXPECT_EQ(Range<long long>(0, c.expected), media->mediaTimeRange());
    EXPECT_EQ(Range<long long>(0, c.expected), *file->source()->trackRange(0));
    const double seconds = static_cast<double>(c.units) * c.unitRate.denominator() /
                           static_cast<double>(c.unitRate.numerator());
    const double editUnits = seconds * c.projectRate.numerator() / c.projectRate.denominator();
    EXPECT_LE(std::fabs(static_cast<double>(c.expected) - editUnits), 0.5);

    // The media may show the whole track, in edit units, and no more.
    const auto source = file->source();
    const auto weak = boost::weak_ptr<const ThreadSafe>(project);
    if (boost::dynamic_pointer_cast<const VMFile>(media)) {
      EXPECT_NO_THROW(VMFile::create(Range<long long>(1, c.expected - 1), weak, source, 0));
      EXPECT_THROW(VMFile::create(Range<long long>(1, c.expected), weak, source, 0),
                   KelMediaLibException);
    } else {
      EXPECT_NO_THROW(AMFile::create(Range<long long>(1, c.expected - 1), weak, source, 0, {0}));
      EXPECT_THROW(AMFile::create(Range<long long>(1, c.expected), weak, source, 0, {0}),
                   KelMediaLibException);
    }
  }
}

TEST_F(SourceTimeTest, AStillLastsItsDefaultDuration) {
  const std::pair<EditRate, long long> cases[] = {
      {EditRate(30), 150}, {EditRate(24000, 1001), 120}, {EditRate(1, 2), 3}};  // 119.88, 2.5
  for (const auto& c : cases) {
    EXPECT_EQ(c.second, IMFile::defaultDuration(c.first));
    boost::shared_ptr<InternalProject> project;
    const auto still = load(std::string(ORV_TEST_DATA_DIR) + "/still.png", c.first, project);
    EXPECT_TRUE(boost::dynamic_pointer_cast<const IMFile>(still));
    EXPECT_EQ(Range<long long>(0, c.second), still->range());
  }
}

TEST_F(SourceTimeTest, TrackRangesThatCantBeConvertedAreRefused) {
  const auto project = InternalProject::create(EditRate(30));
  struct Case {
    Range<long long> range;
    EditRate rate;
    const char* why;
  };
  const Case cases[] = {
      {Range<long long>(0, 90), EditRate(0), "without the edit rate"},
      {Range<long long>(-1, 90), EditRate(30), "negative"},
      {Range<long long>(0, -1), EditRate(30), "negative"},
      {Range<long long>(1, std::numeric_limits<long long>::max()), EditRate(30), "64-bit"},
      {Range<long long>(0, std::numeric_limits<long long>::max()), EditRate(1), "64-bit"},
  };
  for (const Case& c : cases) {
    const auto stats = MediaFileStats::create();
    stats->setFilename("odd.mov");
    MediaFileStats::TrackStats track;
    track.range = c.range;
    track.editRate = c.rate;
    stats->addTrackStats(track);
    const std::string text =
        mediatest::whatOf<KelMediaLibException>([&] { Source::create(stats, project, project); });
    EXPECT_NE(std::string::npos, text.find("\"odd.mov\", track 0")) << c.range << " at " << c.rate;
    EXPECT_NE(std::string::npos, text.find(c.why)) << text;
  }
}

// Reads a folder with a "screen.mov" as a screen recording: its video, and
// the metadata files beside it.
class RecordingLoader : public StatsLoader {
 public:
  bool canOpenFile(const std::string& path) override {
    return boost::filesystem::exists(path + "/screen.mov");
  }
  void loadStats(const std::string& path, MediaFileStats* stats) override {
    FFmpegStatsLoader().loadStats(path + "/screen.mov", stats);
    MediaFileStats::TrackStats screen = stats->trackStats().at(0);
    screen.fileName = path + "/screen.mov";
    for (const char* name : {"dirtyrect", "cursoraction", "frontmost", "cursorlocation"}) {
      screen.metaDataFiles.push_back(path + "/" + name + ".dat");
    }
    stats->setTrackStats({screen});
    stats->setFilename(path);
  }
  std::string description() const override { return "RecordingLoader"; }
};

// Registers a loader for as long as it lives.
class Registration {
 public:
  explicit Registration(boost::shared_ptr<StatsLoader> loader) : loader_(loader) {
    StatsLoader::registerLoader(loader);
  }
  ~Registration() { StatsLoader::unregisterLoader(loader_.get()); }

 private:
  boost::shared_ptr<StatsLoader> loader_;
};

template <class T>
std::string keyFrameTimes(const Parameter<T>& parameter) {
  std::ostringstream out;
  for (const auto& frame : parameter.keyFrames()) {
    out << frame->time() << ' ';
  }
  return out.str();
}

TEST_F(SourceTimeTest, ScreenMetaDataLandsOnTheEditTimesOfItsSeconds) {
  const std::string recording = path("recording");
  boost::filesystem::create_directories(recording);
  MediaFileWriter::write(recording + "/screen.mov", {{64, 48, {30000, 1001}, 60}}, {});
  // The same times in every file: 0.15 s is a little below 0.15, so 4.5
  // units at 30/1 round down; 0.25 s is exactly 7.5 units and rounds up.
  const double seconds[] = {0, 0.15, 0.25, 0.5, 1.001, 1.5, 2.0};
  std::ofstream front(recording + "/frontmost.dat");
  std::ofstream cursor(recording + "/cursorlocation.dat");
  std::ofstream action(recording + "/cursoraction.dat");
  std::ofstream dirty(recording + "/dirtyrect.dat");
  for (double t : seconds) {
    front << t << " 0 0 640 480\n";
    cursor << t << " 10 20\n";
    action << t << " 1\n";
    dirty << t << " 1 0 0 8 8\n";
  }
  front.close();
  cursor.close();
  action.close();
  dirty.close();

  const Registration registration(boost::make_shared<RecordingLoader>());
  struct Case {
    EditRate rate;
    long long duration;  // of 2.002 s
    std::string times;
  };
  const Case cases[] = {
      {EditRate(30), 60, "0 4 8 15 30 45 60 "},  // 4.5, 7.5, 15, 30.03, 45, 60
      // 3.596, 5.994, 11.988, 23.99..., 35.964, 47.952
      {EditRate(24000, 1001), 48, "0 4 6 12 24 36 48 "},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.rate);
    boost::shared_ptr<InternalProject> project;
    const auto screen = boost::dynamic_pointer_cast<const VMFile>(load(recording, c.rate, project));
    ASSERT_TRUE(screen);
    EXPECT_EQ(c.duration, screen->range().duration);
    const auto metaData = screen->screenMetaData()->value();
    ASSERT_TRUE(metaData);
    EXPECT_EQ(c.times, keyFrameTimes(*metaData->frontWindowParam()));
    EXPECT_EQ(c.times, keyFrameTimes(*metaData->cursorLocationParam()));
    EXPECT_EQ(c.times, keyFrameTimes(*metaData->cursorActionParam()));
    EXPECT_EQ(c.times, keyFrameTimes(*metaData->dirtyRectsParam()));
  }
}

}  // namespace
