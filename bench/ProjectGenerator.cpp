#include "ProjectGenerator.h"

#include "actions/ActionDescription.h"
#include "actions/OrigToModified.h"
#include "actions/ScaleTransform.h"
#include "commands/AddActionCmd.h"
#include "core/EditJournal.h"
#include "media/commands/AddMediaCmd.h"
#include "media/commands/NewVisualMixerCmd.h"
#include "media/commands/NewVisualTrackCmd.h"
#include "media/media/TextBox.h"
#include "media/media/Transformer.h"
#include "media/project/ProjectWriter.h"
#include "media/timeline/VisualTrack.h"
#include "parser/OrvParser.h"
#include "project/OrvProject.h"
#include "values/AddParameterKeyFrameCmd.h"
#include "values/InterpolatingParam.h"
#include "values/VectorParam.h"

#include <boost/make_shared.hpp>

#include <sstream>
#include <stdexcept>
#include <vector>

namespace OrvBench {

namespace {

using KelMediaLib::Parameter;

void addKeyFrames(OrvMediaLib::OrvProject& project,
                  const boost::shared_ptr<const Parameter<double>>& parameter, double base,
                  double step) {
  for (int k = 0; k < ProjectGenerator::kKeyFrames; ++k) {
    const long long time = k * (ProjectGenerator::kMediaDuration / ProjectGenerator::kKeyFrames);
    project.execute(boost::make_shared<KelMediaLib::AddParameterKeyFrameCmd<Parameter<double>>>(
        parameter, time, base + step * k));
  }
}

// Builds the project by commands under one journal open throughout: each
// command's own journal would hold a copy of the action bin's state, which
// grows with the bin, and the generator's history is never undone.
boost::shared_ptr<OrvMediaLib::OrvProject> generate(int medias) {
  if (medias < 0) {
    throw std::invalid_argument("ProjectGenerator: a negative number of media (" +
                                std::to_string(medias) + ")");
  }
  const auto project = OrvMediaLib::OrvProject::create(30, 1);
  KelMediaLib::EditJournal journal;
  const KelMediaLib::EditJournal::Scope scope(&journal);
  project->execute(KelMediaLib::NewVisualMixerCmd::create(1920, 1080));
  std::vector<boost::shared_ptr<const KelMediaLib::VisualTrack>> tracks;
  for (int t = 0; t < ProjectGenerator::kTracks; ++t) {
    const auto newTrack = KelMediaLib::NewVisualTrackCmd::create(-1);
    project->execute(newTrack);
    tracks.push_back(newTrack->visualTrack());
  }
  OrvMediaLib::ActionDescription zoom(OrvMediaLib::ActionDescription::CENTER_ACTION);
  zoom.addParameterRange(
      {"scale0", OrvMediaLib::OrigToModified(), OrvMediaLib::ScaleTransform(), 2.0});
  for (int i = 0; i < medias; ++i) {
    const auto box = KelMediaLib::TextBox::create(
        "caption " + std::to_string(i), ProjectGenerator::kMediaDuration, 640, 90, project);
    const long long start = ProjectGenerator::kMediaDuration * (i / ProjectGenerator::kTracks);
    project->execute(
        KelMediaLib::AddMediaCmd::create(tracks[i % ProjectGenerator::kTracks], box, start));
    const double shade = static_cast<double>(i % 7) / 7;
    addKeyFrames(*project, box->opacity(), 0.25 + shade / 2, 0.05);
    addKeyFrames(*project, box->transformer()->translation()->at(0), -400 + i % 13, 80.5);
    addKeyFrames(*project, box->transformer()->rotation()->at(2), shade * 10, -1.5);
    project->orvExecute(
        OrvMediaLib::AddActionCmd::create(box, project->actionBin(), zoom, 120, 60));
  }
  return project;
}

}  // namespace

boost::shared_ptr<OrvMediaLib::OrvProject> ProjectGenerator::build(int medias) {
  const std::string text = document(medias);
  std::istringstream in(text);
  OrvMediaLib::OrvParser parser(nullptr, nullptr);
  return parser.parseProject(in);
}

std::string ProjectGenerator::document(int medias) {
  std::ostringstream out;
  KelMediaLib::ProjectWriter::write(*generate(medias), out);
  return out.str();
}

}  // namespace OrvBench
