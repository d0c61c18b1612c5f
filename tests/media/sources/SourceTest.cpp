#include "core/KelMediaLibException.h"
#include "media/media/AMFile.h"
#include "media/media/MediaTestSupport.h"
#include "media/sources/Clipping.h"
#include "media/sources/MediaFileStats.h"
#include "media/sources/Source.h"

#include <gtest/gtest.h>

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
  for (const std::string bad : {"", "0,1", "(0,,1)", "(a)", "(0 ,1)", "(1,)", "(-1)", "(0,1", "(99999999999)"}) {
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

TEST(SourceTest, SourceElementListsItsTracks) {
  const boost::shared_ptr<Source> source = mediatest::makeSource();
  boost::const_pointer_cast<MediaFileStats>(source->mediaFileStats())->setLastModified(1167609599);
  std::ostringstream out;
  XMLable::Options options(out);
  source->toXML(options, 0, std::string());
  EXPECT_EQ("<Source id=\"" + std::to_string(source->xmlIdent()) +
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

TEST(ClippingTest, NamesAStretchOfASource) {
  const boost::shared_ptr<Source> source = mediatest::makeSource();
  const boost::shared_ptr<Clipping> clipping = Clipping::create("intro", source, Range<long long>(10, 20));
  EXPECT_EQ("intro", clipping->name());
  EXPECT_EQ(source, clipping->source());
  EXPECT_EQ(Range<long long>(10, 20), clipping->range());
  EXPECT_THROW(Clipping::create("x", boost::shared_ptr<Source>(), Range<long long>(0, 1)), KelMediaLibException);
  EXPECT_THROW(Clipping::create("x", source, Range<long long>(0, -1)), KelMediaLibException);
}

}  // namespace
