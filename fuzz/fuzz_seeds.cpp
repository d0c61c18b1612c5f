// Writes the first corpus of the two fuzzers: project files written by the
// library's own writer (every kind of media, edge, effect, link and action,
// and a project without source files), each also spoiled the ways the
// reader's tests spoil theirs; and screen metadata files of each kind.
//
//   fuzz_seeds <media folder> <project corpus folder> <metadata corpus folder>
//
// The media folder holds clip.mp4, still.png and tone.wav (tests/data); the
// projects name them by their absolute paths.

#include "actions/ActionBin.h"
#include "actions/ActionDescription.h"
#include "actions/OrigToModified.h"
#include "actions/ScaleTransform.h"
#include "commands/AddActionCmd.h"
#include "media/commands/AddEffectCmd.h"
#include "media/commands/AddLeftEdgeModCmd.h"
#include "media/commands/AddMediaCmd.h"
#include "media/commands/LinkCmd.h"
#include "media/commands/LoadSourceCmd.h"
#include "media/commands/MoveLeftEdgeModCmd.h"
#include "media/commands/NewAudioMixerCmd.h"
#include "media/commands/NewAudioTrackCmd.h"
#include "media/commands/NewVisualMixerCmd.h"
#include "media/commands/NewVisualTrackCmd.h"
#include "media/commands/StretchCmd.h"
#include "media/commands/TrimStartCmd.h"
#include "media/edges/EdgeModification.h"
#include "media/edges/FadeInFunc.h"
#include "media/edges/RotateFunc.h"
#include "media/effects/GenericEffect.h"
#include "media/media/AMFile.h"
#include "media/media/Callout.h"
#include "media/media/IMFile.h"
#include "media/media/ImageTransition.h"
#include "media/media/TextBox.h"
#include "media/media/Transformer.h"
#include "media/media/VMFile.h"
#include "media/project/ProjectWriter.h"
#include "media/timeline/AudioTrack.h"
#include "media/timeline/VisualTrack.h"
#include "project/OrvProject.h"
#include "values/AddParameterKeyFrameCmd.h"
#include "values/InterpolatingParam.h"
#include "values/SetAttributeValueCmd.h"
#include "values/VectorParam.h"

#include <boost/filesystem.hpp>
#include <boost/make_shared.hpp>

#include <exception>
#include <fstream>
#include <iostream>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace {

using namespace KelMediaLib;
using namespace OrvMediaLib;

ActionDescription describe(ActionDescription::ActionType type, const char* parameter,
                           double value) {
  ActionDescription description(type);
  description.addParameterRange({parameter, OrigToModified(), ScaleTransform(), value});
  return description;
}

std::string written(const Project& project) {
  std::ostringstream out;
  ProjectWriter::write(project, out);
  return out.str();
}

template <class C>
boost::shared_ptr<C> executed(const boost::shared_ptr<OrvProject>& project,
                              const boost::shared_ptr<C>& command) {
  project->execute(command);
  return command;
}

// Two visual tracks and an audio track holding every kind of media, with
// an effect, edges, links, key frames and actions in all three bins.
std::string everyKind(const std::string& media) {
  const auto project = OrvProject::create(30, 1);
  project->execute(NewVisualMixerCmd::create(640, 480));
  project->execute(NewAudioMixerCmd::create(8000, 16, 1));
  const auto video = executed(project, NewVisualTrackCmd::create(-1))->visualTrack();
  const auto overlays = executed(project, NewVisualTrackCmd::create(-1))->visualTrack();
  const auto audio = executed(project, NewAudioTrackCmd::create(-1))->audioTrack();
  const auto load = [&](const char* name) {
    return executed(project, LoadSourceCmd::create(media + "/" + name))->source();
  };
  const auto clip = load("clip.mp4");
  const auto tone = load("tone.wav");
  const auto still = load("still.png");
  const auto add = [&](const boost::shared_ptr<const Track>& track,
                       const boost::shared_ptr<Media>& item, long long at) {
    project->execute(AddMediaCmd::create(track, item, at));
    return item;
  };
  const auto act = [&](const boost::shared_ptr<const Media>& item,
                       const boost::shared_ptr<const ActionBin>& bin,
                       ActionDescription::ActionType type, const char* parameter, double value,
                       long long start, long long duration) {
    project->orvExecute(
        AddActionCmd::create(item, bin, describe(type, parameter, value), start, duration));
  };

  const auto movie = add(video, VMFile::create(Range<long long>(0, 30), project, clip, 0), 0);
  project->execute(StretchCmd::create(video, movie, 2.0));
  project->execute(AddEffectCmd::create(movie, GenericEffect::create("Blur", project)));
  project->execute(MoveLeftEdgeModCmd::create(movie, 10));
  project->execute(AddLeftEdgeModCmd::create(
      movie,
      EdgeModification(boost::dynamic_pointer_cast<VMFile>(movie)->opacity(), FadeInFunc())));
  project->execute(AddLeftEdgeModCmd::create(
      movie, EdgeModification(video->transformer()->rotation()->at(2), RotateFunc(3))));
  const auto picture = add(overlays, IMFile::create(0, 90, project, still, 0), 100);
  project->execute(TrimStartCmd::create(overlays, picture, 7));
  const auto title = add(overlays, TextBox::create("Hello", 60, 320.5f, 40, project), 300);
  project->execute(boost::make_shared<SetAttributeValueCmd<std::string>>(
      boost::dynamic_pointer_cast<TextBox>(title)->ident(), "title"));
  const auto callout = add(overlays, Callout::create(0, 45, project, still, 0), 400);
  add(overlays, ImageTransition::create(20, project), 500);
  const auto voice = add(audio, AMFile::create(Range<long long>(0, 7), project, tone, 0, {0}), 0);
  project->execute(LinkCmd::create(callout, movie));
  project->execute(LinkCmd::create(voice, callout));

  act(movie, project->actionBin(), ActionDescription::CENTER_ACTION, "scale0", 2, 5, 10);
  act(movie, project->zdActionBin(), ActionDescription::CENTER_ACTION, "translation0", -0.0, 20, 8);
  act(title, project->actionBin(), ActionDescription::EDGE_ACTION, "scale1", 3, 0, 4);
  act(title, project->actionBin(), ActionDescription::CENTER_ACTION, "opacity", 5e-324, 10, 20);
  act(callout, project->actionBin(), ActionDescription::CENTER_ACTION, "scale0", 1e308, 1, 5);
  act(voice, project->audioActionBin(), ActionDescription::CENTER_ACTION, "volume", 0.5, 2, 6);
  const auto opacity = boost::dynamic_pointer_cast<VMFile>(movie)->opacity();
  for (int i = 0; i < 3; ++i) {
    project->execute(boost::make_shared<AddParameterKeyFrameCmd<Parameter<double>>>(
        opacity, 100 + i, 1.0 / (i + 2)));
  }
  return written(*project);
}

// Text boxes and their actions only: no source file to probe, so the
// fuzzer spends its time in the reader.
std::string textOnly() {
  const auto project = OrvProject::create(24000, 1001);
  project->execute(NewVisualMixerCmd::create(1280, 720));
  const auto track = executed(project, NewVisualTrackCmd::create(-1))->visualTrack();
  const auto first = TextBox::create("one", 120, 100.0f, 50.0f, project);
  const auto second = TextBox::create("two & <three>", 80, 10.5f, 5.0f, project);
  project->execute(AddMediaCmd::create(track, first, 0));
  project->execute(AddMediaCmd::create(track, second, 200));
  project->orvExecute(
      AddActionCmd::create(first, project->actionBin(),
                           describe(ActionDescription::CENTER_ACTION, "opacity", 0.25), 10, 30));
  project->orvExecute(
      AddActionCmd::create(second, project->zdActionBin(),
                           describe(ActionDescription::EDGE_ACTION, "translation0", 12), 0, 20));
  return written(*project);
}

// A project with no mixer: the smallest file the writer writes.
std::string empty() {
  return written(*OrvProject::create(30, 1));
}

// The ways the reader's tests spoil a written file.
const std::pair<const char*, const char*> spoilings[] = {
    {"<OrvProject", "<MyProject"},
    {"name=\"actionBin\"", "name=\"mainBin\""},
    {"<MediasActions media", "<MediaActions media"},
    {"<CenterAction id", "<SideAction id"},
    {"<ParameterRanges>", "<Ranges>"},
    {"<ParameterRange id", "<Range id"},
    {"<CenterAction id=", "<CenterAction colour=\"red\" id="},
    {"timeRange=", "range="},
    {"left=\"10\"", "left=\"11\""},
    {"timeRange=\"(10,20)\"", "timeRange=\"(10;20)x\""},
    {"parameter=\"opacity\"", "parameter=\"glow\""},
    {"<Project id", "<Projekt id"},
    {"editRate=\"30/1\"", "editRate=\"30/1\" colour=\"red\""},
    {"<SourceTrack", "<Track"},
    {"<Tracks>", "<Trucks>"},
    {"<VisualTrack id", "<AudioTrack id"},
    {"<VMFile id", "<AMFile id"},
    {"name=\"opacity\"", "name=\"volume\""},
    {"<Keyframe time", "<Key time"},
    {"name=\"width\"", "name=\"depth\""},
    {"</OrvProject>", ""},
    {"<Timeline>", "<Timeline x=\"1\" x=\"2\">"},
    {"src=\"", "src=\"9"},
    {"value=\"0.5\"", "value=\"0,5\""},
    {"range=\"(0,", "range=\"(0, "},
};

void save(const std::string& path, const std::string& text) {
  std::ofstream out(path, std::ios::binary);
  out << text;
  if (!out) {
    throw std::runtime_error("unable to write " + path);
  }
}

void projectSeeds(const std::string& media, const std::string& folder) {
  const std::pair<const char*, std::string> projects[] = {
      {"every-kind", everyKind(media)}, {"text-only", textOnly()}, {"empty", empty()}};
  for (const auto& project : projects) {
    save(folder + "/" + project.first + ".orvproj", project.second);
    int n = 0;
    for (const auto& spoiling : spoilings) {
      std::string text = project.second;
      const auto at = text.find(spoiling.first);
      ++n;
      if (at != std::string::npos) {
        text.replace(at, std::string(spoiling.first).size(), spoiling.second);
        save(folder + "/" + project.first + "-spoilt-" + std::to_string(n) + ".orvproj", text);
      }
    }
  }
}

// The first byte of a metadata input picks its kind (see the fuzzer).
void metadataSeeds(const std::string& folder) {
  const std::pair<char, const char*> files[] = {
      {0,
       "\xEF\xBB\xBF# front window\r\n0.5 10 20 300 200\r\n\r\n  2   0 0 1440.5 900  # full\r\n"
       "2.5 -3.4028235e38 3.4e38 0.125 3.40282356e38\n"},
      {0, "0 1 2 3 4\nx 1 2 3 4\n"},
      {1, "0 1 2\n0.1 3.5 4\n1e0 5 6\n1.25 1234.5 0.125\n"},
      {1, "0 1 2\n1 2\n"},
      {2, "0.0333 5\n0.04 0\n"},
      {2, "0 1\n1e300 1\n"},
      {3, "1 2 0 0 10 10 5 5 1 1\n1.5 0\n"},
      {3, "0 1 0 0 1 1\n1 0\n2 1 a 0 1 1\n"},
  };
  int n = 0;
  for (const auto& file : files) {
    save(folder + "/seed-" + std::to_string(++n), std::string(1, file.first) + file.second);
  }
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 4) {
    std::cerr << "usage: fuzz_seeds <media folder> <project corpus> <metadata corpus>\n";
    return 2;
  }
  try {
    const std::string media = boost::filesystem::absolute(argv[1]).string();
    boost::filesystem::create_directories(argv[2]);
    boost::filesystem::create_directories(argv[3]);
    projectSeeds(media, argv[2]);
    metadataSeeds(argv[3]);
  } catch (const std::exception& e) {
    std::cerr << "fuzz_seeds: " << e.what() << '\n';
    return 1;
  }
  return 0;
}
