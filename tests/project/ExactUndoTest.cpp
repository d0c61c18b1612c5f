// Defects of undo and of refused edits, one case each, grouped by kind. Each
// compares the whole written project: before and after undo, after and after
// redo, and before and after a refusal.

#include "project/ProjectTestSupport.h"

#include "actions/OrigToModified.h"
#include "actions/ScaleTransform.h"
#include "commands/AddActionCmd.h"
#include "commands/MoveActionCmd.h"
#include "commands/RemoveParameterRangeCmd.h"
#include "commands/TrimActionEndCmd.h"
#include "commands/TrimActionStartCmd.h"
#include "media/commands/MoveParameterKeyFrameCmd.h"
#include "media/commands/StretchCmd.h"
#include "media/project/CommandHistory.h"
#include "values/AddParameterKeyFrameCmd.h"
#include "values/RemoveParameterKeyFrameCmd.h"

#include <functional>
#include <limits>
#include <sstream>

namespace projecttest {
namespace {

const long long kMax = std::numeric_limits<long long>::max();

class ExactUndoTest : public ProjectFixture {
 protected:
  std::string text() const {
    std::ostringstream out;
    XMLable::Options options(out);
    project->toXML(options, 0, std::string());
    return out.str();
  }

  ActionDescription zoom(double factor) const {
    ActionDescription description(ActionDescription::CENTER_ACTION);
    description.addParameterRange({"scale0", OrigToModified(), ScaleTransform(), factor});
    description.addParameterRange({"opacity", OrigToModified(), ScaleTransform(), factor});
    return description;
  }

  boost::shared_ptr<AddActionCmd> addZoom(long long start, long long duration,
                                          double factor = 2.0) {
    return AddActionCmd::create(media, project->actionBin(), zoom(factor), start, duration);
  }

  /// Every range of the bin shares its key frame objects with its parameter.
  void expectSharedKeyFrames() const {
    const auto actions = project->actionBin()->mediasActions(media);
    for (const auto& action : *actions) {
      const auto ranges = action->parameterRanges();
      for (const auto& range : *ranges) {
        EXPECT_EQ(range->parameter()->keyFrame(range->leftTime()), range->leftKeyframe());
        EXPECT_EQ(range->parameter()->keyFrame(range->rightTime()), range->rightKeyframe());
      }
    }
  }

  /// Runs `edit`; undo must give back the text from before, redo the one
  /// from after, and a second undo the first again, with shared key frames.
  void expectExactUndo(const std::function<void()>& edit) {
    const std::string before = text();
    edit();
    const std::string after = text();
    ASSERT_NE(before, after) << "the edit changed nothing";
    project->undo();
    EXPECT_EQ(text(), before);
    expectSharedKeyFrames();
    project->redo();
    EXPECT_EQ(text(), after);
    project->undo();
    EXPECT_EQ(text(), before);
    expectSharedKeyFrames();
  }

  /// The edit must throw and leave the text and the history.
  void expectRefused(const std::function<void()>& edit) {
    const std::string before = text();
    const unsigned int position = project->commandHistory().position();
    EXPECT_THROW(edit(), std::exception);
    EXPECT_EQ(text(), before);
    EXPECT_EQ(project->commandHistory().position(), position);
  }
};

TEST_F(ExactUndoTest, UndoGivesBackTheWrittenProjectAndRedoTheStateAfter) {
  const auto speedTwo = [this] { run(StretchCmd::create(track, media, 2.0)); };
  const auto withNeighbours = [this] {
    project->orvExecute(addZoom(100, 100, 1.5));
    project->orvExecute(addZoom(400, 100, 3.0));
  };
  struct Case {
    const char* name;
    std::function<void()> setUp;
    std::function<void()> edit;
  };
  const std::vector<Case> cases = {
      {"an add at speed 1 between neighbours", withNeighbours,
       [this] { project->orvExecute(addZoom(250, 50)); }},
      {"an add at speed 2 between neighbours",
       [&] {
         speedTwo();
         withNeighbours();
       },
       [this] { project->orvExecute(addZoom(250, 50)); }},
      {"an add on a parameter at rest", [] {}, [this] { project->orvExecute(addZoom(0, 300)); }},
      {"removing one of an action's ranges", withNeighbours,
       [this] {
         const auto action = project->actionBin()->mediasActions(media)->front();
         project->orvExecute(
             RemoveParameterRangeCmd::create(action, action->parameterRanges()->front()));
       }},
      {"adding a key frame over an occupied time", withNeighbours,
       [this] {
         run(boost::make_shared<AddParameterKeyFrameCmd<Parameter<double>>>(
             parameterOf(*media, "opacity"), 0, 0.5));
       }},
      {"removing a key frame a range holds", withNeighbours,
       [this] {
         run(boost::make_shared<RemoveParameterKeyFrameCmd<Parameter<double>>>(
             media, parameterOf(*media, "opacity"), 400));
       }},
      // Both actions hold a range on "opacity"; the first one's right key
      // frame moves under its range, which must give it back on undo.
      {"moving a key frame that one of a parameter's two ranges holds", withNeighbours,
       [this] {
         run(MoveParameterKeyFrameCmd::create(media, parameterOf(*media, "opacity"), 200, 250));
       }},
      {"moving an action", withNeighbours,
       [this] {
         project->orvExecute(
             MoveActionCmd::create(project->actionBin()->mediasActions(media)->front(), 30));
       }},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    SetUp();
    c.setUp();
    expectExactUndo(c.edit);
  }
}

TEST_F(ExactUndoTest, RefusedEditsChangeNothing) {
  project->orvExecute(addZoom(100, 100));
  project->orvExecute(addZoom(300, 100));
  const auto first = project->actionBin()->mediasActions(media)->front();
  struct Case {
    const char* name;
    std::function<void()> edit;
  };
  const std::vector<Case> cases = {
      {"negative duration", [this] { project->orvExecute(addZoom(600, -10)); }},
      {"no length with ranges", [this] { project->orvExecute(addZoom(600, 0)); }},
      {"a move by a huge delta",
       [&] { project->orvExecute(MoveActionCmd::create(first, kMax - 50)); }},
      {"a move past the times a double holds exactly",
       [&] { project->orvExecute(MoveActionCmd::create(first, 1LL << 53)); }},
      {"a move onto the neighbour",
       [&] { project->orvExecute(MoveActionCmd::create(first, 150)); }},
      {"a trim past the neighbour",
       [&] { project->orvExecute(TrimActionEndCmd::create(first, -250)); }},
      {"a trim to no length", [&] { project->orvExecute(TrimActionStartCmd::create(first, 100)); }},
      {"a trim by a huge delta",
       [&] {
         project->orvExecute(
             TrimActionStartCmd::create(first, std::numeric_limits<long long>::min()));
       }},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    expectRefused(c.edit);
  }
  const auto add = addZoom(600, 50);
  project->orvExecute(add);
  project->undo();
  expectRefused([&] { project->orvExecute(add); });
}

}  // namespace
}  // namespace projecttest
