// The reader of the media model's document: the state machine, the checks
// of every element, the handlers of source files, and how failures travel.

#include "core/Attribute.h"
#include "core/IOException.h"
#include "core/ParserException.h"
#include "core/ValueException.h"
#include "media/media/MediaTestSupport.h"
#include "media/media/VMFile.h"
#include "media/parser/LoadCancelledException.h"
#include "media/parser/Parser.h"
#include "media/project/Project.h"
#include "media/project/SourceBin.h"
#include "media/sources/MediaFileStats.h"
#include "media/sources/Source.h"
#include "media/timeline/Timeline.h"
#include "media/timeline/VisualMixer.h"
#include "media/timeline/VisualTrack.h"
#include "support/GermanLocale.h"
#include "support/ScratchFolder.h"

#include <boost/filesystem.hpp>
#include <boost/lexical_cast/bad_lexical_cast.hpp>
#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <streambuf>

namespace KelMediaLib {
namespace {

using mediatest::whatOf;

// A project with one source, a mixer, a track and a video on it.
std::string document(const std::string& folder) {
  return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
         "<Project id=\"1\" editRate=\"30/1\" version=\"1.0\">\n"
         "  <Author>anything <b>at all</b></Author>\n"
         "  <SourceBin>\n"
         "    <Source id=\"2\" src=\"" +
         folder +
         "/clip.mp4\" lastMod=\"20991231T235959\" "
         "rect=\"(0,0,64,48)\">\n"
         "      <SourceTrack range=\"(0,10)\" type=\"0\" editRate=\"10/1\" "
         "trackRect=\"(0,0,64,48)\" sampleRate=\"0/1\" bitDepth=\"0\" numChannels=\"0\"/>\n"
         "    </Source>\n"
         "  </SourceBin>\n"
         "  <Timeline>\n"
         "    <VisualMixer id=\"3\">\n"
         "      <Attributes><Attribute id=\"4\" name=\"width\" value=\"640.5\"/></Attributes>\n"
         "      <Tracks>\n"
         "        <VisualTrack id=\"5\">\n"
         "          <Medias>\n"
         "            <VMFile id=\"6\" start=\"10\" duration=\"15\" scalar=\"0.5\" "
         "mediaStart=\"0\" "
         "mediaDuration=\"30\" trackNumber=\"0\" src=\"2\">\n"
         "              <Parameters><InterpolatingParam id=\"7\" name=\"opacity\">"
         "<Keyframes><Keyframe time=\"3\" value=\"0.25\"/></Keyframes>"
         "</InterpolatingParam></Parameters>\n"
         "            </VMFile>\n"
         "          </Medias>\n"
         "        </VisualTrack>\n"
         "      </Tracks>\n"
         "    </VisualMixer>\n"
         "  </Timeline>\n"
         "</Project>\n";
}

std::string replaced(std::string text, const std::string& from, const std::string& to) {
  const auto at = text.find(from);
  EXPECT_NE(std::string::npos, at) << from;
  return at == std::string::npos ? text : text.replace(at, from.size(), to);
}

class ParserTest : public ::testing::Test {
 protected:
  void SetUp() override {
    folder = testsupport::scratchFolder("parser");
    boost::filesystem::copy_file(std::string(ORV_TEST_DATA_DIR) + "/clip.mp4", folder + "/clip.mp4",
                                 boost::filesystem::copy_options::overwrite_existing);
  }

  boost::shared_ptr<Project> parse(const std::string& text, MissingFileHandler* missing = nullptr,
                                   ChangedFileHandler* changed = nullptr) {
    Parser parser(missing, changed);
    std::istringstream in(text);
    return parser.parseProject(in);
  }

  std::string folder;
};

TEST_F(ParserTest, BuildsTheProjectWithEmptyHistoryTextAndUnknownBlocksIgnored) {
  testsupport::GermanLocale german;
  const auto project = parse(document(folder));
  ASSERT_TRUE(project);
  EXPECT_EQ(EditRate(30, 1), project->editRate());
  EXPECT_EQ(1u, project->sourceBin()->sources().size());
  const auto mixer = project->timeline()->visualMixer();
  EXPECT_EQ(640.5f, mixer->attributeWidth()->value());
  const auto medias = project->timeline()->allMedias();
  ASSERT_EQ(1u, medias.size());
  const auto movie = boost::dynamic_pointer_cast<const VMFile>(medias[0]);
  ASSERT_TRUE(movie);
  EXPECT_EQ(10, movie->range().start);
  EXPECT_EQ(15, movie->range().duration);
  // The key frame the parameter was born with gave way to the file's.
  EXPECT_EQ(1u, movie->opacity()->numKeyFrames());
  EXPECT_EQ(0.25, movie->opacity()->valueAt(3));
}

enum Kind { Parse, Value, Cast };

// Each row spoils the document at `from`; `at` marks the element whose
// start the error's position must name ("" for errors without a position).
struct Malformed {
  Kind kind;
  const char* from;
  const char* to;
  const char* what;
  const char* at;
};

TEST_F(ParserTest, RefusesEveryMalformedDocumentWithItsTextAndPosition) {
  const Malformed table[] = {
      {Parse, "<Project id", "<Projekt id", "Unexpected name \"Projekt\" in StartStateImpl",
       "<Projekt"},
      {Parse, "<Author>", "<Editor>", "Unexpected name \"Editor\" in Project", "<Editor"},
      {Parse, "editRate=\"30/1\"", "editRate=\"30/1\" colour=\"red\"",
       "Unexpected Project attribute \"colour\".", "<Project"},
      {Parse, " version=\"1.0\">\n  <Author>", ">\n  <Author>", "Project missing attributes.",
       "<Project"},
      {Parse, "<SourceTrack", "<Track", "Unexpected name \"Track\" in Source", "<Track"},
      {Parse, "<Tracks>", "<Trucks>", "Unexpected name \"Trucks\" in VisualMixer", "<Trucks"},
      {Parse, "<VisualTrack id=\"5\">", "<AudioTrack id=\"5\">",
       "Unexpected name \"AudioTrack\" in Tracks", "<AudioTrack"},
      {Parse, "<VMFile id", "<AMFile id", "Unexpected name \"AMFile\" in Visual Medias", "<AMFile"},
      {Parse, "duration=\"15\"", "duration=\"16\"", "unable to scale media to their correct size",
       "<VMFile"},
      {Parse, "name=\"opacity\"", "name=\"volume\"",
       "Unexpected parameter \"volume\" in VMFile State Parameters", "<InterpolatingParam"},
      {Parse, "<Keyframe time", "<Key time", "Unexpected name \"Key\" in KeyframesState", "<Key "},
      {Parse, "name=\"width\"", "name=\"depth\"", "Unexpected attribute \"depth\" in Attributes",
       "<Attribute "},
      {Parse, "</Timeline>\n</Project>", "</Timeline>\n", "ErrCode:3 ErrString:no element found",
       ""},
      {Parse, "<Author>", "<Author x=\"1\" x=\"2\">", "ErrCode:8 ErrString:duplicate attribute",
       ""},
      {Value, "src=\"2\">\n", "src=\"9\">\n", "ident not found in source table", ""},
      {Cast, "value=\"0.25\"", "value=\"0,25\"", "", ""},
      {Cast, "range=\"(0,10)\"", "range=\"(0, 10)\"", "", ""},
  };
  for (const Malformed& bad : table) {
    const std::string text = replaced(document(folder), bad.from, bad.to);
    SCOPED_TRACE(bad.to);
    try {
      parse(text);
      ADD_FAILURE() << "loaded";
    } catch (const ParserException& e) {
      EXPECT_EQ(Parse, bad.kind);
      EXPECT_EQ(bad.what, std::string(e.what()));
      if (*bad.at) {
        const auto offset = text.find(bad.at);
        const auto lineStart = text.rfind('\n', offset);
        const int line =
            static_cast<int>(std::count(text.begin(), text.begin() + offset, '\n')) + 1;
        EXPECT_EQ(line, e.line);
        EXPECT_EQ(static_cast<int>(offset - (lineStart + 1)), e.column);
      } else {
        EXPECT_GT(e.line, 0);
      }
    } catch (const ValueException<unsigned int>& e) {
      EXPECT_EQ(Value, bad.kind);
      EXPECT_EQ(bad.what, std::string(e.what()));
      EXPECT_EQ(9u, e.value);
    } catch (const boost::bad_lexical_cast&) {
      EXPECT_EQ(Cast, bad.kind);
    }
  }
}

TEST_F(ParserTest, EmptyAndBlockSizedDocumentsAndFailingStreams) {
  try {
    parse("");
    ADD_FAILURE();
  } catch (const ParserException& e) {
    EXPECT_EQ("ErrCode:3 ErrString:no element found", std::string(e.what()));
    EXPECT_EQ(1, e.line);
  }
  // Exactly one block: the end is only seen by a second, empty read.
  std::string exact = "<Project id=\"1\" editRate=\"30/1\" version=\"1.0\"><Comment>";
  exact += std::string(1024 - exact.size() - 21, 'x') + "</Comment></Project>\n";
  ASSERT_EQ(1024u, exact.size());
  EXPECT_TRUE(parse(exact));

  struct FailingBuffer : std::streambuf {
    int_type underflow() override { throw std::ios_base::failure("disk gone"); }
  } failing;
  std::istream in(&failing);
  EXPECT_EQ("IOException: bad read from parsing file.",
            whatOf<IOException>([&] { Parser(nullptr, nullptr).parseProject(in); }));
  EXPECT_EQ("IOException: unable to open file \"" + folder + "/none.xml\".",
            whatOf<KelMediaLibException>(
                [&] { Parser(nullptr, nullptr).parseProject(folder + "/none.xml"); }));
}

struct Handlers : MissingFileHandler, ChangedFileHandler {
  std::string handleMissingFile(const std::string& path) override {
    asked.push_back("missing " + path);
    return replacement;
  }
  bool handleChangedFile(const std::string& path, const MediaFileStats* stored,
                         const MediaFileStats* current) override {
    asked.push_back("changed " + path);
    storedTracks = stored->trackStats().size();
    currentFound = current != nullptr;
    return load;
  }
  std::string replacement;
  bool load = true;
  std::vector<std::string> asked;
  std::size_t storedTracks = 0;
  bool currentFound = false;
};

TEST_F(ParserTest, MissingAndChangedSourcesGoToTheHandlersOrEndTheLoad) {
  const std::string moved = replaced(document(folder), folder + "/clip.mp4", "gone/clip.mp4");
  const std::string old = replaced(document(folder), "20991231T235959", "20000101T000000");
  EXPECT_EQ("Missing File:gone/clip.mp4", whatOf<ParserException>([&] { parse(moved); }));
  EXPECT_EQ("Changed File:" + folder + "/clip.mp4", whatOf<ParserException>([&] { parse(old); }));

  Handlers handlers;
  handlers.replacement = folder + "/clip.mp4";
  EXPECT_EQ(1u, parse(moved, &handlers, &handlers)->timeline()->allMedias().size());
  EXPECT_EQ(std::vector<std::string>{"missing gone/clip.mp4"}, handlers.asked);

  // Without the source the media that shows it can't be made.
  handlers.replacement.clear();
  EXPECT_THROW(parse(moved, &handlers, &handlers), ValueException<unsigned int>);

  handlers.asked.clear();
  EXPECT_TRUE(parse(old, &handlers, &handlers));
  EXPECT_EQ(std::vector<std::string>{"changed " + folder + "/clip.mp4"}, handlers.asked);
  EXPECT_EQ(1u, handlers.storedTracks);
  EXPECT_TRUE(handlers.currentFound);
  handlers.load = false;
  EXPECT_THROW(parse(old, &handlers, &handlers), ValueException<unsigned int>);

  // A prefix resolves a relative path first.
  Parser parser(nullptr, nullptr);
  parser.setPathPrefix(folder);
  std::istringstream in(replaced(document(folder), folder + "/clip.mp4", "clip.mp4"));
  EXPECT_EQ(folder + "/clip.mp4",
            parser.parseProject(in)->sourceBin()->sources().at(0)->mediaFileStats()->filename());
}

TEST_F(ParserTest, ReportsProgressAndCancelsCleanly) {
  std::string text = document(folder);
  text.insert(text.find("<SourceBin>"), "<Comment>" + std::string(5000, 'c') + "</Comment>");
  std::vector<std::pair<std::uint64_t, std::uint64_t>> calls;
  Parser parser(nullptr, nullptr);
  parser.setProgressCallback([&](std::uint64_t read, std::uint64_t total) {
    calls.emplace_back(read, total);
    return true;
  });
  std::istringstream in(text);
  EXPECT_TRUE(parser.parseProject(in));
  ASSERT_GE(calls.size(), 5u);
  EXPECT_EQ(1024u, calls.front().first);
  EXPECT_EQ(text.size(), calls.back().first);
  EXPECT_EQ(text.size(), calls.back().second);

  Parser cancelled(nullptr, nullptr);
  cancelled.setProgressCallback([](std::uint64_t read, std::uint64_t) { return read < 2048; });
  std::istringstream again(text);
  EXPECT_THROW(cancelled.parseProject(again), LoadCancelledException);
}

}  // namespace
}  // namespace KelMediaLib
