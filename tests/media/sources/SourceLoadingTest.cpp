#include "core/KelMediaLibException.h"
#include "media/commands/AddClippingCmd.h"
#include "media/commands/LoadSourceCmd.h"
#include "media/commands/RemoveClippingCmd.h"
#include "media/commands/UnloadSourceCmd.h"
#include "media/media/MediaTestSupport.h"
#include "media/project/InternalProject.h"
#include "media/project/SourceBin.h"
#include "media/sources/Clipping.h"
#include "media/sources/MediaFileStats.h"
#include "media/sources/Source.h"
#include "media/sources/SourceBinSentry.h"
#include "media/sources/StatsLoader.h"
#include "support/ScratchFolder.h"

#include <boost/algorithm/string/predicate.hpp>
#include <boost/filesystem.hpp>
#include <boost/make_shared.hpp>
#include <gtest/gtest.h>

#include <fstream>
#include <functional>
#include <sstream>
#include <stdexcept>
#include <string>

using namespace KelMediaLib;

namespace {

std::string dataFile(const std::string& name) {
  return std::string(ORV_TEST_DATA_DIR) + "/" + name;
}

// Notes what it is told; refuses loads while `refuse` is set.
struct LoggingSentry : SourceBinSentry {
  std::string log;
  bool refuse = false;
  void sourceLoaded(boost::shared_ptr<const Source> source) override {
    log += "+" + boost::filesystem::path(source->mediaFileStats()->filename()).filename().string();
    if (refuse) {
      throw std::runtime_error("refused");
    }
  }
  void sourceUnloaded(boost::shared_ptr<const Source> source) override {
    log += "-" + boost::filesystem::path(source->mediaFileStats()->filename()).filename().string();
  }
};

class SourceCommandsTest : public ::testing::Test {
 public:
  // The bin holds a wave file with three clippings, and a recording whose
  // streams lie in its folder.
  void SetUp() override {
    project = InternalProject::create(EditRate(30, 1));
    const auto load = LoadSourceCmd::create(dataFile("tone.wav"));
    project->execute(load);
    tone = load->source();
    for (const char* name : {"a", "b", "c"}) {
      project->addClipping(Clipping::create(name, tone, Range<long long>(0, 100)));
    }
    const auto stats = MediaFileStats::create();
    stats->setFilename("/old/rec.vdpak");
    MediaFileStats::TrackStats screen;
    screen.fileName = "/old/rec.vdpak/screen.mov";
    screen.metaDataFiles = {"/old/rec.vdpak/dirtyrect.dat", "/old/rec.vdpak2/frontmost.dat"};
    stats->addTrackStats(screen);
    recording = Source::create(stats, project, project);
    project->loadSource(recording);
    sentry = boost::make_shared<LoggingSentry>();
    second = boost::make_shared<LoggingSentry>();
    project->addSourceBinSentry(sentry);
    project->addSourceBinSentry(second);
  }

  // The whole state of the source bin as text.
  std::string snapshot() const {
    std::ostringstream out;
    for (const auto& source : project->sourceBin()->sources()) {
      const auto stats = source->mediaFileStats();
      out << "source " << source->xmlIdent() << ' ' << stats->filename() << ' '
          << stats->lastModified();
      for (const auto& track : stats->trackStats()) {
        out << " [" << track.fileName;
        for (const auto& file : track.metaDataFiles) {
          out << ' ' << file;
        }
        out << ']';
      }
      out << '\n';
    }
    for (const auto& clipping : project->sourceBin()->clippings()) {
      out << "clipping " << clipping->name() << ' ' << clipping->source()->xmlIdent() << '\n';
    }
    return out.str();
  }

  boost::shared_ptr<InternalProject> project;
  boost::shared_ptr<const Source> tone;
  boost::shared_ptr<const Source> recording;
  boost::shared_ptr<LoggingSentry> sentry;
  boost::shared_ptr<LoggingSentry> second;
};

TEST_F(SourceCommandsTest, EditsAreUndoneAndRedoneExactly) {
  const std::string moved = testsupport::scratchFolder("source-loading") + "/moved-recording";
  boost::filesystem::create_directories(moved);
  struct Case {
    const char* name;
    std::function<void(SourceCommandsTest&)> edit;
    const char* told;
  };
  const Case cases[] = {
      {"load",
       [](SourceCommandsTest& t) {
         t.project->execute(LoadSourceCmd::create(dataFile("clip.mp4")));
       },
       "+clip.mp4"},
      {"unload", [](SourceCommandsTest& t) { t.project->execute(UnloadSourceCmd::create(t.tone)); },
       "-tone.wav"},
      {"relink a recording",
       [moved](SourceCommandsTest& t) {
         t.project->changeSourcesFile(t.recording, moved);
         const auto track = t.recording->mediaFileStats()->trackStats()[0];
         EXPECT_EQ(moved + "/screen.mov", track.fileName);
         EXPECT_EQ(moved + "/dirtyrect.dat", track.metaDataFiles[0]);
         EXPECT_EQ("/old/rec.vdpak2/frontmost.dat", track.metaDataFiles[1]);
       },
       ""},
      {"add a clipping",
       [](SourceCommandsTest& t) {
         t.project->execute(
             AddClippingCmd::create(Clipping::create("d", t.tone, Range<long long>(5, 10))));
       },
       ""},
      {"remove a clipping between two",
       [](SourceCommandsTest& t) {
         t.project->execute(RemoveClippingCmd::create(t.project->sourceBin()->clippings()[1]));
       },
       ""},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    SetUp();
    const std::string before = snapshot();
    c.edit(*this);
    const std::string after = snapshot();
    EXPECT_NE(before, after);
    EXPECT_EQ(c.told, sentry->log);
    project->undo();
    EXPECT_EQ(before, snapshot());
    project->redo();
    EXPECT_EQ(after, snapshot());
    EXPECT_EQ(second->log, sentry->log);
  }
}

TEST_F(SourceCommandsTest, RefusedEditsChangeNothing) {
  const std::string empty = testsupport::scratchFolder("source-loading") + "/empty.mp4";
  std::ofstream(empty).close();
  const std::string before = snapshot();
  for (const std::string& path : {std::string("/no/such/clip.mp4"), empty, ::testing::TempDir()}) {
    const std::string text = mediatest::whatOf<KelMediaLibException>(
        [&] { project->execute(LoadSourceCmd::create(path)); });
    EXPECT_NE(std::string::npos, text.find("\"" + path + "\"")) << path;
    EXPECT_THROW(project->changeSourcesFile(tone, path + "/gone"), KelMediaLibException);
  }
  // A clipping of a source out of the bin, and a sentry that refuses a load.
  const auto stranger = Source::create(MediaFileStats::create());
  EXPECT_THROW(project->execute(
                   AddClippingCmd::create(Clipping::create("x", stranger, Range<long long>(0, 1)))),
               KelMediaLibException);
  second->refuse = true;
  EXPECT_THROW(project->execute(LoadSourceCmd::create(dataFile("clip.mp4"))), std::runtime_error);
  EXPECT_EQ("+clip.mp4-clip.mp4", sentry->log);
  EXPECT_EQ(before, snapshot());
  EXPECT_EQ(1u, project->commandHistory().numCommands());
}

// A track's stats as text: type, rectangle, edit rate, range, sample rate,
// bit depth, channels.
std::string describe(const MediaFileStats::TrackStats& track) {
  std::ostringstream out;
  out << track.type << ' ' << track.trackRect << ' ' << track.editRate << ' ' << track.range << ' '
      << track.sampleRate << ' ' << track.bitDepth << ' ' << track.numChannels;
  return out.str();
}

TEST(FFmpegStatsLoaderTest, ProbesVideoSoundAndPictures) {
  const std::pair<const char*, const char*> cases[] = {
      {"clip.mp4", "0 (0,0,64,48) 10/1 (0,10) 0/1 0 0"},
      {"tone.wav", "2 (0,0,0,0) 8000/1 (0,2000) 8000/1 16 1"},
      {"still.png", "1 (0,0,32,24) 0/1 (0,0) 0/1 0 0"}};
  for (const auto& c : cases) {
    const std::string path = dataFile(c.first);
    const boost::shared_ptr<MediaFileStats> stats = MediaFileStats::create(path);
    EXPECT_EQ(path, stats->filename());
    EXPECT_EQ(boost::filesystem::last_write_time(path), stats->lastModified());
    ASSERT_EQ(1u, stats->trackStats().size()) << path;
    EXPECT_EQ(c.second, describe(stats->trackStats()[0]));
    EXPECT_EQ(stats->trackStats()[0].trackRect, stats->rect());
  }
}

// Opens the paths with its suffix and marks the stats it fills with its tag.
class FakeLoader : public StatsLoader {
 public:
  FakeLoader(std::string suffix, int tag) : suffix_(std::move(suffix)), tag_(tag) {}
  bool canOpenFile(const std::string& path) override {
    return boost::algorithm::ends_with(path, suffix_);
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

  StatsLoader::unregisterLoader(first.get());
  EXPECT_EQ(102, loadedBy(wave));
  StatsLoader::unregisterLoader(second.get());
  EXPECT_EQ(16, loadedBy(wave));
  EXPECT_EQ(1u, StatsLoader::loaders().size());
}

}  // namespace
