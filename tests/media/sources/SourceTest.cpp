#include "core/Attribute.h"
#include "core/KelMediaLibException.h"
#include "media/media/AMFile.h"
#include "media/media/MediaTestSupport.h"
#include "media/media/VMFile.h"
#include "media/metadata/ScreenMetaData.h"
#include "media/project/InternalProject.h"
#include "media/sources/Clipping.h"
#include "media/sources/MediaFileStats.h"
#include "media/sources/Source.h"
#include "support/GermanLocale.h"
#include "values/Point.h"
#include "support/ScratchFolder.h"

#include <boost/filesystem.hpp>
#include <gtest/gtest.h>

#include <fstream>
#include <set>
#include <sstream>
#include <string>

using namespace KelMediaLib;

namespace {

TEST(ChannelListTest, ReadsTheBracketedListAndRefusesAnythingElse) {
  const std::pair<std::string, std::set<unsigned int>> good[] = {
      {"(0,1)", {0, 1}}, {"()", {}}, {"(3)", {3}}, {"(5,2,5)", {2, 5}}};
  for (const auto& c : good) {
    std::istringstream in(c.first);
    std::set<unsigned int> channels{99};
    AMFile::readChannels(in, channels);
    EXPECT_EQ(c.second, channels) << c.first;
    std::ostringstream out;
    AMFile::writeChannels(out, channels);
    std::istringstream back(out.str());
    std::set<unsigned int> reread;
    AMFile::readChannels(back, reread);
    EXPECT_EQ(channels, reread);
  }
  EXPECT_EQ("(2,5)", [] {
    std::ostringstream out;
    AMFile::writeChannels(out, {5, 2});
    return out.str();
  }());
  for (const std::string bad :
       {"", "0,1", "(0,,1)", "(a)", "(0 ,1)", "(1,)", "(-1)", "(0,1", "(99999999999)"}) {
    std::istringstream in(bad);
    std::set<unsigned int> channels{7};
    EXPECT_THROW(AMFile::readChannels(in, channels), KelMediaLibException) << bad;
    EXPECT_EQ(std::set<unsigned int>{7}, channels) << bad;
  }
}

TEST(MediaFileStatsTest, TrackTypesReadAsTheirNumbers) {
  const std::pair<std::string, MediaFileStats::TrackType> good[] = {
      {"0", MediaFileStats::Video}, {"1", MediaFileStats::Image}, {"2", MediaFileStats::Audio}};
  for (const auto& c : good) {
    std::istringstream in(c.first);
    MediaFileStats::TrackType type = MediaFileStats::Image;
    EXPECT_TRUE(static_cast<bool>(in >> type));
    EXPECT_EQ(c.second, type);
  }
  for (const std::string bad : {"3", "-1", "x"}) {
    std::istringstream in(bad);
    MediaFileStats::TrackType type = MediaFileStats::Image;
    EXPECT_FALSE(static_cast<bool>(in >> type)) << bad;
    EXPECT_EQ(MediaFileStats::Image, type);
  }
  const boost::shared_ptr<MediaFileStats> stats = MediaFileStats::create();
  EXPECT_THROW(stats->trackStatsAt(0), KelMediaLibException);
}

// The numbers are written in the C form whatever the global locale.
TEST(SourceTest, SourceElementListsItsTracks) {
  const testsupport::GermanLocale german;
  const boost::shared_ptr<Source> source = mediatest::makeSource();
  boost::const_pointer_cast<MediaFileStats>(source->mediaFileStats())->setLastModified(1167609599);
  std::ostringstream out;
  XMLable::Options options(out);
  source->toXML(options, 0, std::string());
  EXPECT_EQ(
      "<Source id=\"1"
      "\" src=\"clip.mov\" lastMod=\"20061231T235959\" rect=\"(0,0,640,480)\">\n"
      "  <SourceTrack range=\"(0,300)\" type=\"0\" editRate=\"30/1\" "
      "trackRect=\"(0,0,640,480)\" sampleRate=\"0/1\" bitDepth=\"0\" numChannels=\"0\"/>\n"
      "  <SourceTrack range=\"(0,300)\" type=\"2\" editRate=\"30/1\" "
      "trackRect=\"(0,0,0,0)\" sampleRate=\"48000/1\" bitDepth=\"16\" numChannels=\"2\"/>\n"
      "</Source>\n",
      out.str());
  EXPECT_EQ(Range<long long>(0, 300), *source->trackRange(1));
  EXPECT_FALSE(source->trackRange(2));
  EXPECT_THROW(Source::create(boost::shared_ptr<MediaFileStats>()), KelMediaLibException);
}

TEST(ClippingTest, NeedsASourceAndALength) {
  EXPECT_THROW(Clipping::create("x", boost::shared_ptr<Source>(), Range<long long>(0, 1)),
               KelMediaLibException);
  EXPECT_THROW(Clipping::create("x", mediatest::makeSource(), Range<long long>(0, -1)),
               KelMediaLibException);
}

TEST(SourceTest, MakesOneMediaPerTrackIterableByKind) {
  const boost::shared_ptr<InternalProject> project = InternalProject::create(EditRate(30, 1));
  const std::string folder = testsupport::scratchFolder("recording-for-source-test");
  boost::filesystem::create_directories(folder);
  std::ofstream(folder + "/cursorlocation.dat") << "0.5 10 20\n";
  const boost::shared_ptr<MediaFileStats> stats = MediaFileStats::create();
  stats->setFilename(folder);
  const std::pair<MediaFileStats::TrackType, std::string> tracks[] = {
      {MediaFileStats::Video, "screen.mov"},
      {MediaFileStats::Audio, "audiotrack0.wav"},
      {MediaFileStats::Image, "still.png"},
      {MediaFileStats::Video, "camera.mov"}};
  for (const auto& t : tracks) {
    MediaFileStats::TrackStats track;
    track.type = t.first;
    track.range = Range<long long>(0, 90);
    track.editRate = EditRate(30);
    track.numChannels = 2;
    track.fileName = folder + "/" + t.second;
    if (t.second == "screen.mov") {
      track.metaDataFiles = {"dirtyrect.dat", "cursorlocation.dat"};
    }
    stats->addTrackStats(track);
  }

  boost::shared_ptr<Source> source = Source::create(stats, project, project);
  const auto names = [](auto begin, auto end) {
    std::string text;
    for (; begin != end; ++begin) {
      text += boost::filesystem::path(
                  boost::dynamic_pointer_cast<const FileRepresentation>(*begin)->fileName())
                  .filename()
                  .string() +
              " ";
    }
    return text;
  };
  EXPECT_EQ("screen.mov still.png camera.mov ",
            names(source->mediaBegin<const VisualMedia>(), source->mediaEnd<const VisualMedia>()));
  EXPECT_EQ("audiotrack0.wav ",
            names(source->mediaBegin<const AudioMedia>(), source->mediaEnd<const AudioMedia>()));
  EXPECT_EQ("screen.mov camera.mov ",
            names(source->mediaBegin<const VMFile>(), source->mediaEnd<const VMFile>()));
  EXPECT_EQ((std::set<unsigned int>{0, 1}), (*source->mediaBegin<const AMFile>())->channels());

  // The screen carries the metadata files that are there; the camera none.
  const boost::shared_ptr<const VMFile> screenMedia = *source->mediaBegin<const VMFile>();
  const auto metaData = screenMedia->screenMetaData()->value();
  ASSERT_TRUE(metaData);
  EXPECT_TRUE(metaData->hasContent());
  EXPECT_EQ(Point(10, 20, 0), metaData->cursorLocationParam()->valueAt(15));
  EXPECT_EQ(1u, metaData->parameterFiles().size());
  EXPECT_FALSE((*++source->mediaBegin<const VMFile>())->screenMetaData()->value());

  // Source and media don't hold each other: the media go with the source.
  const boost::weak_ptr<const Media> camera = source->media().back();
  source.reset();
  EXPECT_TRUE(camera.expired());
  EXPECT_EQ(folder, screenMedia->source()->mediaFileStats()->filename());

  MediaFileStats::TrackStats keys;
  keys.metaDataFiles = {folder + "/keystrokes.dat"};
  stats->setTrackStats({keys});
  EXPECT_THROW(Source::create(stats, project, project), KelMediaLibException);
}

}  // namespace
