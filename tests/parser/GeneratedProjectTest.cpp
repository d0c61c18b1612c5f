// The benchmarks' large projects: what the generator writes is what it
// promises and reads back to the same text, and the project read is as
// editable as one built by hand (nothing to undo, then undo works).

#include "ProjectGenerator.h"

#include "actions/ActionBin.h"
#include "core/KelMediaLibException.h"
#include "core/ParserException.h"
#include "media/commands/MoveMediaCmd.h"
#include "media/media/TextBox.h"
#include "media/media/Transformer.h"
#include "media/project/CommandHistory.h"
#include "media/project/ProjectWriter.h"
#include "media/timeline/Timeline.h"
#include "media/timeline/VisualMixer.h"
#include "media/timeline/VisualTrack.h"
#include "parser/OrvParser.h"
#include "project/OrvProject.h"
#include "values/AddParameterKeyFrameCmd.h"
#include "values/InterpolatingParam.h"
#include "values/VectorParam.h"

#include <boost/make_shared.hpp>
#include <gtest/gtest.h>

#include <sstream>
#include <stdexcept>

namespace {

using namespace KelMediaLib;
using OrvBench::ProjectGenerator;
using OrvMediaLib::OrvProject;

std::string written(const Project& project) {
  std::ostringstream out;
  ProjectWriter::write(project, out);
  return out.str();
}

// Checks the shape the generator promises for `medias` media.
void expectShape(const OrvProject& project, int medias) {
  const auto mixer = project.timeline()->visualMixer();
  ASSERT_TRUE(mixer);
  ASSERT_EQ(ProjectGenerator::kTracks, mixer->numTracks());
  int total = 0;
  for (int t = 0; t < mixer->numTracks(); ++t) {
    const auto onTrack = mixer->trackAt(t)->medias();
    EXPECT_EQ((medias + ProjectGenerator::kTracks - 1 - t) / ProjectGenerator::kTracks,
              static_cast<int>(onTrack.size()))
        << "track " << t;
    long long expectedStart = 0;
    for (const auto& media : onTrack) {
      const auto box = boost::dynamic_pointer_cast<const TextBox>(media);
      ASSERT_TRUE(box);
      EXPECT_EQ(expectedStart, box->range().start);
      EXPECT_EQ(ProjectGenerator::kMediaDuration, box->range().duration);
      expectedStart += ProjectGenerator::kMediaDuration;
      const Parameter<double>* animated[] = {box->opacity().get(),
                                             box->transformer()->translation()->at(0).get(),
                                             box->transformer()->rotation()->at(2).get()};
      for (const Parameter<double>* parameter : animated) {
        EXPECT_EQ(static_cast<unsigned>(ProjectGenerator::kKeyFrames), parameter->numKeyFrames())
            << parameter->name();
      }
      EXPECT_EQ(1u, project.actionBin()->mediasActions(media.get())->size());
      ++total;
    }
  }
  EXPECT_EQ(medias, total);
  EXPECT_EQ(static_cast<unsigned>(medias), project.actionBin()->numActions());
}

TEST(GeneratedProjectTest, HasTheShapePromisedAndReadsBackToTheSameText) {
  for (const int medias : {0, 1, 100}) {
    SCOPED_TRACE(medias);
    const std::string text = ProjectGenerator::document(medias);
    EXPECT_EQ(text, ProjectGenerator::document(medias));

    const auto built = ProjectGenerator::build(medias);
    ASSERT_TRUE(built);
    expectShape(*built, medias);
    EXPECT_EQ(text, written(*built));
  }
}

TEST(GeneratedProjectTest, AProjectReadHasNothingToUndoAndThenUndoesItsEdits) {
  const std::string text = ProjectGenerator::document(100);
  const auto back = ProjectGenerator::build(100);
  EXPECT_EQ(0u, back->commandHistory().numCommands());
  EXPECT_THROW(back->undo(), KelMediaLibException);

  const auto track = back->timeline()->visualMixer()->trackAt(1);
  const auto media = track->medias().at(10);
  back->execute(MoveMediaCmd::create(track, media, 45));
  EXPECT_NE(text, written(*back));
  back->undo();
  EXPECT_EQ(text, written(*back));
}

// A load runs its commands under a journal of its own; one that fails must
// close it, or the edits after it would have no journal to undo them by.
TEST(GeneratedProjectTest, EditsAfterAFailedLoadUndoExactly) {
  const std::string text = ProjectGenerator::document(10);
  const auto project = ProjectGenerator::build(10);
  OrvMediaLib::OrvParser parser(nullptr, nullptr);
  std::istringstream truncated(text.substr(0, text.size() / 2));
  EXPECT_THROW(parser.parseProject(truncated), ParserException);

  const auto track = project->timeline()->visualMixer()->trackAt(0);
  const auto media = boost::dynamic_pointer_cast<const TextBox>(track->medias().at(2));
  project->execute(
      boost::make_shared<AddParameterKeyFrameCmd<Parameter<double>>>(media->opacity(), 45, 0.125));
  EXPECT_NE(text, written(*project));
  project->undo();
  EXPECT_EQ(text, written(*project));
}

TEST(GeneratedProjectTest, RefusesANegativeCount) {
  EXPECT_THROW(ProjectGenerator::document(-1), std::invalid_argument);
  EXPECT_THROW(ProjectGenerator::build(-1), std::invalid_argument);
}

}  // namespace
