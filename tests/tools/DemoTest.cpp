// What `make demo` runs, driven in process, its output read for its figures.

#include "Dispatcher.h"
#include "Subcommand.h"

#include "support/ScratchFolder.h"

#include <boost/filesystem.hpp>
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

namespace {

struct OrvRun {
  int code;
  std::string out;
  std::string err;
};

OrvRun orvRun(const std::vector<std::string>& args) {
  std::ostringstream out, err;
  const int code = orv::makeDispatcher().run(args, out, err);
  return OrvRun{code, out.str(), err.str()};
}

std::string textOf(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

int count(const std::string& text, const std::string& what) {
  int n = 0;
  for (auto at = text.find(what); at != std::string::npos; at = text.find(what, at + 1)) ++n;
  return n;
}

TEST(DemoTest, SampleZoomAndInfoFromEndToEnd) {
  const std::string demo = testsupport::scratchFolder("demo");
  const std::string bundle = demo + "/sample.vdpak";
  const std::string project = demo + "/sample.orvproj";
  const std::string svg = demo + "/zoom.svg";

  const OrvRun sample = orvRun({"sample", demo});
  ASSERT_EQ(sample.code, orv::kExitOk) << sample.err;
  EXPECT_NE(sample.out.find("wrote " + bundle), std::string::npos) << sample.out;

  const OrvRun zoom = orvRun({"zoom", bundle, "-o", project, "--svg", svg});
  // Fails only when the file doesn't read back (see the test below).
  ASSERT_NE(zoom.out.find("wrote " + project), std::string::npos) << zoom.out << zoom.err;
  EXPECT_EQ(zoom.code == orv::kExitOk, zoom.out.find("read back: same\n") != std::string::npos)
      << zoom.out << zoom.err;
  std::smatch match;
  ASSERT_TRUE(std::regex_search(zoom.out, match, std::regex("zoom actions: (\\d+)\n"))) << zoom.out;
  const int actions = std::stoi(match[1]);
  EXPECT_GE(actions, 1);
  // Each action: its fade of half a second, in order, within the ten seconds.
  const std::regex line(
      "  (\\d+): (\\d+\\.\\d\\d) s - (\\d+\\.\\d\\d) s  rect \\((-?\\d+),(-?\\d+)\\)-"
      "\\((-?\\d+),(-?\\d+)\\)\n");
  double previousEnd = 0;
  int listed = 0;
  for (auto it = std::sregex_iterator(zoom.out.begin(), zoom.out.end(), line);
       it != std::sregex_iterator(); ++it) {
    const double start = std::stod((*it)[2]), end = std::stod((*it)[3]);
    EXPECT_EQ(std::stoi((*it)[1]), ++listed);
    EXPECT_NEAR(end - start, 0.5, 1e-9) << it->str();
    EXPECT_GE(start, previousEnd) << it->str();
    EXPECT_LE(end, 10.0) << it->str();
    const int left = std::stoi((*it)[4]), top = std::stoi((*it)[5]);
    const int right = std::stoi((*it)[6]), bottom = std::stoi((*it)[7]);
    EXPECT_TRUE(left >= 0 && top >= 0 && right <= 1280 && bottom <= 720 && left < right &&
                top < bottom)
        << it->str();
    previousEnd = end;
  }
  EXPECT_EQ(listed, actions);
  EXPECT_TRUE(
      std::regex_search(zoom.out, std::regex("\nundo: (exact|DIFFERS); redo: (exact|DIFFERS)\n")))
      << zoom.out;

  // The picture: the frame and the strip, a rectangle and a bar per action.
  const std::string picture = textOf(svg);
  EXPECT_EQ(picture.rfind("<svg ", 0), 0u);
  EXPECT_EQ(picture.substr(picture.size() - 7), "</svg>\n");
  EXPECT_EQ(count(picture, "<rect "), 2 + 2 * actions);
  EXPECT_EQ(count(picture, "<circle "), 3);

  const OrvRun info = orvRun({"info", project});
  ASSERT_EQ(info.code, orv::kExitOk) << info.err;
  EXPECT_NE(info.out.find("VMFile at (0,300)"), std::string::npos) << info.out;

  const OrvRun bundleInfo = orvRun({"info", bundle});
  ASSERT_EQ(bundleInfo.code, orv::kExitOk) << bundleInfo.err;
  EXPECT_NE(bundleInfo.out.find("(recording bundle, 1280x720)\ntracks:\n"
                                "  video screen.mov (0,300) at 30/1, 4 metadata files\n"
                                "  audio audiotrack0.wav (0,300) at 30/1\n"),
            std::string::npos)
      << bundleInfo.out;
}

TEST(DemoTest, TheFileKeepsTheZoomActions) {
  const std::string demo = testsupport::scratchFolder("demo-file");
  ASSERT_EQ(orvRun({"sample", demo}).code, orv::kExitOk);
  const OrvRun zoom = orvRun({"zoom", demo + "/sample.vdpak", "-o", demo + "/p.orvproj"});
  EXPECT_EQ(zoom.code, orv::kExitOk) << zoom.out << zoom.err;
  EXPECT_NE(zoom.out.find("read back: same\n"), std::string::npos) << zoom.out;
  const OrvRun info = orvRun({"info", demo + "/p.orvproj"});
  EXPECT_NE(info.out.find("zdActionBin 4"), std::string::npos) << info.out;
}

TEST(DemoTest, UndoAndRedoOfTheZoomAreExact) {
  const std::string demo = testsupport::scratchFolder("demo-undo");
  ASSERT_EQ(orvRun({"sample", demo}).code, orv::kExitOk);
  const OrvRun zoom = orvRun({"zoom", demo + "/sample.vdpak", "-o", demo + "/p.orvproj"});
  EXPECT_NE(zoom.out.find("undo: exact; redo: exact\n"), std::string::npos) << zoom.out;
}

TEST(DemoTest, WrongCommandLinesAndFailuresAreReported) {
  const std::string folder = testsupport::scratchFolder("demo-errors");
  const struct {
    std::vector<std::string> args;
    int code;
    const char* says;
  } cases[] = {
      {{"sample"}, orv::kExitUsage, "usage: orv sample DIR"},
      {{"sample", "a", "b"}, orv::kExitUsage, "usage: orv sample DIR"},
      {{"zoom"}, orv::kExitUsage, "usage: orv zoom"},
      {{"zoom", folder}, orv::kExitUsage, "usage: orv zoom"},
      {{"zoom", folder, "-o"}, orv::kExitUsage, "usage: orv zoom"},
      {{"zoom", folder, "-o", folder + "/p", "--zoom", "9"}, orv::kExitUsage, "from 1 to 4"},
      {{"zoom", folder, "-o", folder + "/p", "--zoom", "2x"}, orv::kExitUsage, "from 1 to 4"},
      {{"zoom", folder + "/none.vdpak", "-o", folder + "/p"}, orv::kExitFailure, "orv zoom: "},
      {{"sample", "/proc/no/such/place"}, orv::kExitFailure, "orv sample: "},
  };
  for (const auto& c : cases) {
    const OrvRun run = orvRun(c.args);
    EXPECT_EQ(run.code, c.code) << c.args.size() << " args: " << run.err;
    EXPECT_NE(run.err.find(c.says), std::string::npos) << run.err;
  }
}

}  // namespace
