#include "core/KelMediaLibException.h"
#include "media/media/MediaTestSupport.h"
#include "media/media/VMFile.h"
#include "media/metadata/ScreenMetaData.h"
#include "media/project/InternalProject.h"
#include "media/sources/MediaFileStats.h"
#include "media/sources/Source.h"
#include "support/GermanLocale.h"
#include "support/ScratchFolder.h"

#include <boost/filesystem.hpp>
#include <gtest/gtest.h>

#include <cfloat>
#include <fstream>
#include <sstream>
#include <string>
#include <utility>

using namespace KelMediaLib;

namespace {

// Metadata of a screen recording "screen.mov" in a folder of its own, in a
// project at 30 edit units a second.
class ScreenMetaDataTest : public ::testing::Test {
 protected:
  void SetUp() override {
    project = InternalProject::create(EditRate(30, 1));
    folder = testsupport::scratchFolder("screen-metadata-test");
    boost::filesystem::create_directories(folder);
    const auto stats = MediaFileStats::create();
    stats->setFilename(folder + "/screen.mov");
    MediaFileStats::TrackStats track;
    track.range = Range<long long>(0, 300);
    stats->addTrackStats(track);
    video = VMFile::create(track.range, project, Source::create(stats), 0);
    metaData = ScreenMetaData::create(project, video, project);
  }

  // Writes a file beside the recording; returns its name relative to it.
  std::string write(const std::string& name, const std::string& text) const {
    std::ofstream(folder + "/" + name, std::ios::binary) << text;
    return name;
  }

  boost::shared_ptr<InternalProject> project;
  std::string folder;
  boost::shared_ptr<VMFile> video;
  boost::shared_ptr<ScreenMetaData> metaData;
};

template <class T>
std::string keyFrames(const Parameter<T>& parameter) {
  std::ostringstream out;
  for (const auto& frame : parameter.keyFrames()) {
    out << frame->time() << ':';
    writeXMLValue(out, frame->value());
    out << ' ';
  }
  return out.str();
}

// Numbers are in the C form whatever the global locale; a coordinate may be
// any finite float.
TEST_F(ScreenMetaDataTest, ReadsEachFileIntoItsParameterInEditUnits) {
  const testsupport::GermanLocale german;
  EXPECT_FALSE(metaData->hasContent());
  metaData->setFrontWindowFile(write("frontmost.dat",
                                     "\xEF\xBB\xBF# front window\r\n"
                                     "0.5 10 20 300 200\r\n"
                                     "\r\n"
                                     "  2   0 0 1440.5 900  # full screen\r\n"
                                     "2.5 -3.4028235e38 3.4e38 0.125 3.40282356e38\n"));
  metaData->setCursorLocationFile(
      write("cursorlocation.dat", "0 1 2\n0.1 3.5 4\n1e0 5 6\n1.25 1234.5 0.125\n"));
  metaData->setCursorActionFile(write("cursoraction.dat", "0.0333 5\n0.04 0\n"));
  metaData->setDirtyRectsFile(write("dirtyrect.dat", "1 2 0 0 10 10 5 5 1 1\n1.5 0\n"));
  EXPECT_TRUE(metaData->hasContent());

  EXPECT_EQ(
      "0:(0,0,0,0) 15:(10,20,300,200) 60:(0,0,1440.5,900) "
      "75:(-3.4028235e+38,3.4e+38,0.125,3.4028235e+38) ",
      keyFrames(*metaData->frontWindowParam()));
  EXPECT_EQ(FLT_MAX, metaData->frontWindowParam()->valueAt(75).height);
  // 1.25 s are 37.5 units.
  EXPECT_EQ("0:(1,2,0) 3:(3.5,4,0) 30:(5,6,0) 38:(1234.5,0.125,0) ",
            keyFrames(*metaData->cursorLocationParam()));
  // Both actions round to edit unit 1; the later one wins.
  EXPECT_EQ("0:0 1:0 ", keyFrames(*metaData->cursorActionParam()));
  EXPECT_EQ((std::vector<Rect<float>>{Rect<float>(0, 0, 10, 10), Rect<float>(5, 5, 1, 1)}),
            metaData->dirtyRectsParam()->valueAt(30));
  EXPECT_TRUE(metaData->dirtyRectsParam()->valueAt(45).empty());

  EXPECT_EQ(
      "<ScreenMetaData>\n"
      "  <ParameterFile filename=\"frontmost.dat\" paramName=\"topmostWindowCoordinates\"/>\n"
      "  <ParameterFile filename=\"cursorlocation.dat\" paramName=\"cursorLocation\"/>\n"
      "  <ParameterFile filename=\"cursoraction.dat\" paramName=\"cursorAction\"/>\n"
      "  <ParameterFile filename=\"dirtyrect.dat\" paramName=\"dirtyRects\"/>\n"
      "</ScreenMetaData>\n",
      mediatest::xmlOf(*metaData));
}

// A malformed line is refused with its number; and as a device may never end
// and a pipe never answer, only regular files are read. A refusal changes
// nothing.
TEST_F(ScreenMetaDataTest, RefusesMalformedLinesAndWhatIsNotARegularFile) {
  typedef void (ScreenMetaData::*Setter)(const std::string&);
  const auto expectRefused = [this](Setter setter, const std::string& name,
                                    const std::string& what) {
    const std::string text =
        mediatest::whatOf<KelMediaLibException>([&] { (metaData.get()->*setter)(name); });
    EXPECT_NE(std::string::npos, text.find(what)) << name << ": " << text;
  };
  struct Case {
    Setter setter;
    const char* text;
    int line;
  };
  const Case cases[] = {
      {&ScreenMetaData::setFrontWindowFile, "0 1 2 3 4\nx 1 2 3 4\n", 2},
      {&ScreenMetaData::setFrontWindowFile, "-1 0 0 1 1\n", 1},
      {&ScreenMetaData::setFrontWindowFile, "# c\n\n0 nan 0 1 1\n", 3},
      {&ScreenMetaData::setCursorLocationFile, "0 1 2\n1 2\n", 2},
      {&ScreenMetaData::setCursorLocationFile, "0 1,5 2\n", 1},
      {&ScreenMetaData::setCursorActionFile, "0 1.5\n", 1},
      {&ScreenMetaData::setCursorActionFile, "0 1\n1 -2\n", 2},
      {&ScreenMetaData::setDirtyRectsFile, "0 2 0 0 1 1\n", 1},
      {&ScreenMetaData::setDirtyRectsFile, "0 1 0 0 1 1\n1 0\n2 1 a 0 1 1\n", 3},
      // Beyond the largest float; a time beyond the 64-bit axis.
      {&ScreenMetaData::setFrontWindowFile, "0 0 0 1 1\n1 0 0 3.4028236e38 1\n", 2},
      {&ScreenMetaData::setDirtyRectsFile, "0 1 0 0 1e39 1\n", 1},
      {&ScreenMetaData::setCursorActionFile, "0 1\n1e300 1\n", 2},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.text);
    expectRefused(c.setter, write("bad.dat", c.text),
                  "\"bad.dat\", line " + std::to_string(c.line) + ":");
  }
  const std::pair<Setter, std::string> devices[] = {
      {&ScreenMetaData::setCursorActionFile, "/dev/zero"},
      {&ScreenMetaData::setFrontWindowFile, "/dev/null"},
      {&ScreenMetaData::setDirtyRectsFile, folder},
  };
  for (const auto& c : devices) {
    expectRefused(c.first, c.second, "\"" + c.second + "\" isn't a regular file");
  }
  EXPECT_THROW(metaData->setCursorActionFile("missing.dat"), KelMediaLibException);
  EXPECT_FALSE(metaData->hasContent());
  EXPECT_TRUE(metaData->parameterFiles().empty());
  EXPECT_EQ(1u, metaData->cursorActionParam()->numKeyFrames());
}

}  // namespace
