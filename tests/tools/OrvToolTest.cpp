// The orv tool: the choice of subcommand, its usage and exit codes, and
// `orv info` on a file the library wrote and on files that won't load.

#include "Dispatcher.h"

#include "actions/ActionDescription.h"
#include "actions/OrigToModified.h"
#include "actions/SetTransform.h"
#include "commands/AddActionCmd.h"
#include "media/commands/AddMediaCmd.h"
#include "media/commands/LoadSourceCmd.h"
#include "media/commands/NewVisualMixerCmd.h"
#include "media/commands/NewVisualTrackCmd.h"
#include "media/media/TextBox.h"
#include "media/media/VMFile.h"
#include "media/project/ProjectWriter.h"
#include "media/timeline/VisualTrack.h"
#include "project/OrvProject.h"
#include "support/ScratchFolder.h"

#include <boost/filesystem.hpp>
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

namespace {

struct ToolRun {
  int code;
  std::string out;
  std::string err;
};

ToolRun orv(const std::vector<std::string>& args) {
  std::ostringstream out;
  std::ostringstream err;
  const int code = orv::makeDispatcher().run(args, out, err);
  return {code, out.str(), err.str()};
}

TEST(OrvToolTest, ChoosesTheSubcommandOrExplainsTheUsage) {
  const struct {
    std::vector<std::string> args;
    int code;
    const char* outHas;
    const char* errHas;
  } table[] = {
      {{}, 2, "", "usage: orv <command>"},
      {{"--help"}, 0, "  info      Load a project file", ""},
      {{"help", "info"}, 0, "usage: orv info", ""},
      {{"help", "frobnicate"}, 2, "", "no help for 'frobnicate'"},
      {{"frobnicate"}, 2, "", "'frobnicate' is not an orv command"},
      {{"info"}, 2, "", "usage: orv info"},
      {{"info", "--fast", "x"}, 2, "", "unknown option '--fast'"},
      {{"info", "a", "b"}, 2, "", "one file at a time"},
  };
  for (const auto& row : table) {
    const ToolRun run = orv(row.args);
    EXPECT_EQ(row.code, run.code) << run.err;
    EXPECT_NE(std::string::npos, run.out.find(row.outHas)) << run.out;
    EXPECT_NE(std::string::npos, run.err.find(row.errHas)) << run.err;
  }
}

TEST(OrvToolTest, InfoSummarisesAWrittenFileAndReportsFilesThatWontLoad) {
  const std::string folder = testsupport::scratchFolder("orv-info");
  boost::filesystem::copy_file(std::string(ORV_TEST_DATA_DIR) + "/clip.mp4", folder + "/clip.mp4",
                               boost::filesystem::copy_options::overwrite_existing);
  const auto project = OrvMediaLib::OrvProject::create(30, 1);
  project->execute(KelMediaLib::NewVisualMixerCmd::create(640, 480));
  const auto track = KelMediaLib::NewVisualTrackCmd::create(-1);
  project->execute(track);
  const auto load = KelMediaLib::LoadSourceCmd::create(folder + "/clip.mp4");
  project->execute(load);
  project->execute(KelMediaLib::AddMediaCmd::create(
      track->visualTrack(),
      KelMediaLib::VMFile::create(KelMediaLib::Range<long long>(0, 30), project, load->source(), 0),
      0));
  const auto title = KelMediaLib::TextBox::create("Hi", 90, 100, 50, project);
  project->execute(KelMediaLib::AddMediaCmd::create(track->visualTrack(), title, 40));
  OrvMediaLib::ActionDescription fade(OrvMediaLib::ActionDescription::CENTER_ACTION);
  fade.addParameterRange(
      {"opacity", OrvMediaLib::OrigToModified(), OrvMediaLib::SetTransform(), 0.5});
  project->orvExecute(OrvMediaLib::AddActionCmd::create(title, project->actionBin(), fade, 10, 30));
  const std::string file = folder + "/project.xml";
  KelMediaLib::ProjectWriter::write(*project, file);

  const ToolRun good = orv({"info", file});
  EXPECT_EQ(0, good.code) << good.err;
  for (const char* line :
       {"edit rate: 30/1\n", "sources: 1\n", "clip.mp4 (found)\n", "visual track 0: 2 media\n",
        "VMFile at (0,30) showing (0,30)\n", "TextBox at (40,90) showing (0,90), 1 actions\n",
        "opacity: 2 key frames\n", "actions: actionBin 1, zdActionBin 0, audioActionBin 0\n"}) {
    EXPECT_NE(std::string::npos, good.out.find(line)) << line << " in\n" << good.out;
  }

  // The source gone: the load fails at the media that shows it.
  boost::filesystem::remove(folder + "/clip.mp4");
  const ToolRun missing = orv({"info", "--no-progress", file});
  EXPECT_EQ(1, missing.code);
  EXPECT_NE(std::string::npos, missing.err.find("ident not found in source table"));
  EXPECT_NE(std::string::npos, missing.err.find("source file missing: " + folder + "/clip.mp4"));

  std::ofstream(folder + "/bad.xml")
      << "<OrvProject version=\"1.0\">\n  <Projekt/>\n</OrvProject>\n";
  const ToolRun bad = orv({"info", folder + "/bad.xml"});
  EXPECT_EQ(1, bad.code);
  EXPECT_NE(std::string::npos,
            bad.err.find("Unexpected name \"Projekt\" in OrvProjectState (line 2, column 2)"))
      << bad.err;
}

}  // namespace
