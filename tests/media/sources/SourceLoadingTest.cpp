#include "core/KelMediaLibException.h"
#include "media/commands/AddClippingCmd.h"
#include "media/commands/LoadSourceCmd.h"
#include "media/commands/RemoveClippingCmd.h"
#include "media/commands/UnloadSourceCmd.h"
#include "media/project/InternalProject.h"
#include "media/project/SourceBin.h"
#include "media/sources/Clipping.h"
#include "media/sources/MediaFileStats.h"
#include "media/sources/Source.h"
#include "media/sources/SourceBinSentry.h"

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
  void SetUp() override {
    sentry = boost::make_shared<LoggingSentry>();
    second = boost::make_shared<LoggingSentry>();
    project = InternalProject::create(EditRate(30, 1));
    const auto load = LoadSourceCmd::create(dataFile("tone.wav"));
    project->execute(load);
    tone = load->source();
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
  boost::shared_ptr<LoggingSentry> sentry;
  boost::shared_ptr<LoggingSentry> second;
};

TEST_F(SourceCommandsTest, EditsAreUndoneAndRedoneExactly) {
  const std::string moved = ::testing::TempDir() + "moved-recording";
  boost::filesystem::create_directories(moved);
  struct Case {
    const char* name;
    std::function<void(SourceCommandsTest&)> prepare;
    std::function<void(SourceCommandsTest&)> edit;
    const char* told;
  };
  const auto clipping = [](SourceCommandsTest& t, const char* name) {
    return Clipping::create(name, t.tone, Range<long long>(0, 100));
  };
  const Case cases[] = {
      {"load", nullptr,
       [](SourceCommandsTest& t) {
         t.project->execute(LoadSourceCmd::create(dataFile("clip.mp4")));
       },
       "+clip.mp4"},
      {"unload", nullptr,
       [](SourceCommandsTest& t) { t.project->execute(UnloadSourceCmd::create(t.tone)); },
       "-tone.wav"},
      {"relink a recording",
       [](SourceCommandsTest& t) {
         const auto stats = MediaFileStats::create();
         stats->setFilename("/old/rec.vdpak");
         MediaFileStats::TrackStats screen;
         screen.range = Range<long long>(0, 30);
         screen.fileName = "/old/rec.vdpak/screen.mov";
         screen.metaDataFiles = {"/old/rec.vdpak/dirtyrect.dat", "/old/rec.vdpak2/frontmost.dat"};
         stats->addTrackStats(screen);
         t.project->loadSource(Source::create(stats, t.project, t.project));
         t.sentry->log.clear();
         t.second->log.clear();
       },
       [moved](SourceCommandsTest& t) {
         t.project->changeSourcesFile(t.project->sourceBin()->sources().back(), moved);
         const auto track =
             t.project->sourceBin()->sources().back()->mediaFileStats()->trackStats()[0];
         EXPECT_EQ(moved + "/screen.mov", track.fileName);
         EXPECT_EQ(moved + "/dirtyrect.dat", track.metaDataFiles[0]);
         EXPECT_EQ("/old/rec.vdpak2/frontmost.dat", track.metaDataFiles[1]);
       },
       ""},
      {"add a clipping", nullptr,
       [clipping](SourceCommandsTest& t) {
         t.project->execute(AddClippingCmd::create(clipping(t, "intro")));
       },
       ""},
      {"remove a clipping between two",
       [clipping](SourceCommandsTest& t) {
         for (const char* name : {"a", "b", "c"}) {
           t.project->execute(AddClippingCmd::create(clipping(t, name)));
         }
       },
       [](SourceCommandsTest& t) {
         t.project->execute(RemoveClippingCmd::create(t.project->sourceBin()->clippings()[1]));
       },
       ""},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    SetUp();
    if (c.prepare) {
      c.prepare(*this);
    }
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
  const std::string empty = ::testing::TempDir() + "empty.mp4";
  std::ofstream(empty).close();
  const std::string before = snapshot();
  for (const std::string& path : {std::string("/no/such/clip.mp4"), empty, ::testing::TempDir()}) {
    try {
      project->execute(LoadSourceCmd::create(path));
      ADD_FAILURE() << path << " was loaded";
    } catch (const KelMediaLibException& e) {
      EXPECT_NE(std::string::npos, std::string(e.what()).find("\"" + path + "\"")) << e.what();
    }
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

}  // namespace
