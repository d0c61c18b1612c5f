#include "clipbin/VidpakStatsLoader.h"

#include "clipbin/BundleSupport.h"
#include "core/Attribute.h"
#include "core/IOException.h"
#include "core/ParserException.h"
#include "media/commands/LoadSourceCmd.h"
#include "media/media/VMFile.h"
#include "media/metadata/ScreenMetaData.h"
#include "media/sources/MediaFileStats.h"
#include "media/sources/Source.h"
#include "media/sources/StatsLoader.h"
#include "project/OrvProject.h"
#include "support/ScratchFolder.h"

#include <boost/filesystem.hpp>
#include <gtest/gtest.h>

#include <fstream>
#include <string>
#include <vector>

using KelMediaLib::MediaFileStats;
using OrvMediaLib::VidpakStatsLoader;

namespace {

std::string leaf(const std::string& path) {
  return boost::filesystem::path(path).filename().string();
}

// A track as "type:file" with its metadata files' names behind.
std::string describe(const MediaFileStats::TrackStats& track) {
  std::string text = std::to_string(static_cast<int>(track.type)) + ":" + leaf(track.fileName);
  for (const std::string& file : track.metaDataFiles) text += " " + leaf(file);
  return text;
}

struct ShapeCase {
  const char* name;
  bundletest::BundleShape shape;
  std::vector<std::string> tracks;
};

class VidpakStatsLoaderShapeTest : public ::testing::TestWithParam<ShapeCase> {};

// Video tracks first (the screen, then the camera), then the sound (the
// system's, then the camera's); only the screen lists the metadata, in the
// loader's order. Ranges are in the recording's edit units.
TEST_P(VidpakStatsLoaderShapeTest, TracksFollowTheRecordingsTimeline) {
  const ShapeCase c = GetParam();
  const std::string bundle = bundletest::makeBundle(
      testsupport::scratchFolder("vidpak-loader") + "/" + c.name + ".vdpak", c.shape);
  VidpakStatsLoader loader;
  ASSERT_TRUE(loader.canOpenFile(bundle));
  const auto stats = MediaFileStats::create();
  loader.loadStats(bundle, stats.get());

  EXPECT_EQ(stats->filename(), bundle);
  EXPECT_EQ(stats->rect(), KelMediaLib::Rect<int>(0, 0, 64, 48));
  std::vector<std::string> tracks;
  for (const auto& track : stats->trackStats()) {
    tracks.push_back(describe(track));
    EXPECT_EQ(track.editRate, KelMediaLib::EditRate(30, 1)) << describe(track);
    EXPECT_EQ(track.range, KelMediaLib::Range<long long>(0, 30)) << describe(track);
    EXPECT_EQ(leaf(boost::filesystem::path(track.fileName).parent_path().string()), leaf(bundle));
    if (track.type == MediaFileStats::Audio) {
      EXPECT_EQ(track.sampleRate, KelMediaLib::EditRate(8000, 1));
      EXPECT_EQ(track.numChannels, leaf(track.fileName) == "camera.mov" ? 1 : 2);
    }
  }
  EXPECT_EQ(tracks, c.tracks);
}

const char* const kScreen =
    "0:screen.mov dirtyrect.dat cursoraction.dat frontmost.dat cursorlocation.dat";

INSTANTIATE_TEST_SUITE_P(
    Bundles, VidpakStatsLoaderShapeTest,
    ::testing::Values(ShapeCase{"screenOnly", {false, false}, {kScreen}},
                      ShapeCase{"systemAudio", {false, true}, {kScreen, "2:audiotrack0.wav"}},
                      ShapeCase{"camera", {true, false}, {kScreen, "0:camera.mov", "2:camera.mov"}},
                      ShapeCase{"cameraAndSystemAudio",
                                {true, true},
                                {kScreen, "0:camera.mov", "2:audiotrack0.wav", "2:camera.mov"}}),
    [](const ::testing::TestParamInfo<ShapeCase>& info) { return std::string(info.param.name); });

TEST(VidpakStatsLoaderTest, OnlyADirectoryWithAProjectFileOpens) {
  const std::string folder = testsupport::scratchFolder("vidpak-loader-open");
  boost::filesystem::create_directories(folder + "/empty.vdpak");
  std::ofstream(folder + "/plain.vdpak") << "<Project/>";
  boost::filesystem::create_directories(folder + "/any name");
  std::ofstream(folder + "/any name/project.xml") << "<Project/>";
  const struct {
    std::string path;
    bool opens;
  } cases[] = {
      {folder + "/empty.vdpak", false},
      {folder + "/plain.vdpak", false},
      {folder + "/missing.vdpak", false},
      {folder + "/any name", true},
  };
  VidpakStatsLoader loader;
  for (const auto& c : cases) {
    EXPECT_EQ(loader.canOpenFile(c.path), c.opens) << c.path;
    if (c.opens) continue;
    const auto stats = MediaFileStats::create();
    try {
      loader.loadStats(c.path, stats.get());
      ADD_FAILURE() << c.path << " loaded";
    } catch (const KelMediaLib::IOException& e) {
      EXPECT_EQ(std::string(e.what()),
                "IOException: specified file not openable with a vidpakstats loader:" + c.path);
    }
  }
}

TEST(VidpakStatsLoaderTest, FileRolesGoByName) {
  const struct {
    bool (*test)(const std::string&);
    const char* name;
    bool valid;
  } cases[] = {
      {&VidpakStatsLoader::validScreenVideoFilename, "/r.vdpak/screen.mov", true},
      {&VidpakStatsLoader::validScreenVideoFilename, "/r.vdpak/ScreenCapture.mov", true},
      {&VidpakStatsLoader::validScreenVideoFilename, "screen.kvdr", true},
      {&VidpakStatsLoader::validScreenVideoFilename, "/r.vdpak/Screen.mov", false},
      {&VidpakStatsLoader::validScreenVideoFilename, "/Screen.mov/clip.mov", false},
      {&VidpakStatsLoader::validScreenVideoFilename, "/r/my-screen.mov", false},
      {&VidpakStatsLoader::validSystemAudioFilename, "/r.vdpak/audiotrack0.wav", true},
      {&VidpakStatsLoader::validSystemAudioFilename, "/x/audiotrack0.wav.old", true},
      {&VidpakStatsLoader::validSystemAudioFilename, "/r.vdpak/AudioTrack0.wav", false},
      {&VidpakStatsLoader::validCameraVideoFilename, "/r.vdpak/camera.mov", true},
      {&VidpakStatsLoader::validCameraVideoFilename, "/r.vdpak/Camera.mov", false},
      {&VidpakStatsLoader::validMicrophoneAudioFilename, "/r.vdpak/camera.mov", true},
      {&VidpakStatsLoader::validMicrophoneAudioFilename, "/r.vdpak/audiotrack0.wav", false},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(c.test(c.name), c.valid) << c.name;
  }
  EXPECT_EQ(VidpakStatsLoader::vidpakExtension(), "vdpak");
}

// Registered with the library, so that a bundle is a source like any file:
// its screen comes with the metadata that automatic zoom needs.
TEST(VidpakStatsLoaderTest, ABundleLoadsAsASource) {
  const std::string bundle = bundletest::makeBundle(
      testsupport::scratchFolder("vidpak-loader-source") + "/rec.vdpak", {false, true});
  const auto loader = KelMediaLib::StatsLoader::loaderFor(bundle);
  ASSERT_TRUE(loader);
  EXPECT_EQ(loader->description(), "VidpakStatsLoader");

  const auto project = OrvMediaLib::OrvProject::create(60, 1);
  // As a user names it on a command line: relative to where they are.
  const auto load =
      KelMediaLib::LoadSourceCmd::create(boost::filesystem::relative(bundle).string());
  ASSERT_TRUE(project->execute(load));
  const auto source = load->source();
  ASSERT_EQ(source->media().size(), 2u);
  const auto screen = *source->mediaBegin<const KelMediaLib::VMFile>();
  // One second: 60 units at the project's rate.
  EXPECT_EQ(screen->mediaTimeRange(), KelMediaLib::Range<long long>(0, 60));
  const auto metaData = screen->screenMetaData()->value();
  ASSERT_TRUE(metaData);
  EXPECT_TRUE(metaData->hasContent());
  EXPECT_EQ(metaData->parameterFiles().size(), 4u);
}

TEST(VidpakStatsLoaderTest, ABundleWithAStreamGoneFailsToLoad) {
  const std::string bundle = bundletest::makeBundle(
      testsupport::scratchFolder("vidpak-loader-gone") + "/rec.vdpak", {false, true});
  boost::filesystem::remove(bundle + "/audiotrack0.wav");
  const auto stats = MediaFileStats::create();
  try {
    VidpakStatsLoader().loadStats(bundle, stats.get());
    ADD_FAILURE() << "loaded";
  } catch (const KelMediaLib::ParserException& e) {
    EXPECT_NE(std::string(e.what()).find("Missing File:"), std::string::npos) << e.what();
    EXPECT_NE(std::string(e.what()).find("audiotrack0.wav"), std::string::npos) << e.what();
  }
}

}  // namespace
