// Laying a description over an existing action: new ranges added, colliding
// ones handed to the strategy, and all of it undone and redone.

#include "commands/ActionCommandTestSupport.h"

#include "actions/ParameterRange.h"
#include "actions/SetTransform.h"
#include "commands/AddActionCmd.h"
#include "commands/MergeActionCmd.h"
#include "commands/MergeActionCmdCollisionStrategy.h"

#include <gtest/gtest.h>

#include <set>
#include <vector>

namespace actioncmdtest {
namespace {

using OrvMediaLib::MergeActionCmd;
using OrvMediaLib::ParameterRange;

// A zoom over 100..200 of a text box at the timeline's start.
struct Zoomed : Studio {
  boost::shared_ptr<const Media> media = addMedia(0);
  boost::shared_ptr<Action> action;
  Zoomed() {
    const auto command = OrvMediaLib::AddActionCmd::create(media, project->actionBin(),
                                                           zoom(2.0, 10.0, -6.0), 100, 100);
    project->orvExecute(command);
    action = command->createdAction();
  }
  /// The action's ranges by parameter name, in order.
  std::string names() const {
    std::string text;
    const auto list = action->parameterRanges();
    for (const auto& range : *list) {
      text += range->parameter()->name() + " ";
    }
    return text;
  }
  /// The ranges by identity of parameter and key frames: a range in an action
  /// is a copy, whose key frames are those of the range it was made from.
  std::set<std::vector<const void*>> identities() const {
    std::set<std::vector<const void*>> held;
    const auto list = action->parameterRanges();
    for (const auto& range : *list) {
      held.insert(
          {range->parameter().get(), range->leftKeyframe().get(), range->rightKeyframe().get()});
    }
    return held;
  }
  std::string state() const {
    return keyFrames(*media, {"scale0", "scale1", "translation0", "translation1", "opacity"});
  }
};

/// A stronger zoom on "scale0" (colliding) and a fade (new).
ActionDescription zoomHarderAndFade() {
  ActionDescription description(ActionDescription::CENTER_ACTION);
  description.addParameterRange(
      {"scale0", OrvMediaLib::OrigToModified(), OrvMediaLib::ScaleTransform(), 3.0});
  description.addParameterRange(
      {"opacity", OrvMediaLib::OrigToModified(), OrvMediaLib::SetTransform(), 0.5});
  return description;
}

TEST(MergeActionCmdTest, CollidingRangeIsReplacedAndUndoRestoresTheSameObject) {
  const Zoomed zoomed;
  const std::string before = zoomed.state();
  const auto old = zoomed.identities();
  const auto command = MergeActionCmd::create(zoomed.media, zoomHarderAndFade(), zoomed.action);
  zoomed.project->orvExecute(command);
  // The fade is added first, then the old "scale0" range goes and the new
  // one follows.
  EXPECT_EQ(command->numUndoCommands(), 3u);
  EXPECT_EQ(zoomed.names(), "scale1 translation0 translation1 opacity scale0 ");
  const auto merged = zoomed.identities();
  const std::string after = zoomed.state();
  EXPECT_EQ(after,
            "scale0: 100=1 200=3\n"
            "scale1: 100=1 200=2\n"
            "translation0: 100=0 200=10\n"
            "translation1: 100=0 200=-6\n"
            "opacity: 100=1 200=0.5\n");

  // Undo brings back the old range on its own key frames, redo the new one.
  zoomed.project->undo();
  EXPECT_EQ(zoomed.identities(), old);
  EXPECT_EQ(zoomed.state(), before);
  zoomed.project->redo();
  EXPECT_EQ(zoomed.identities(), merged);
  EXPECT_EQ(zoomed.state(), after);

  const auto empty = MergeActionCmd::create(
      zoomed.media, ActionDescription(ActionDescription::CENTER_ACTION), zoomed.action);
  zoomed.project->orvExecute(empty);
  EXPECT_EQ(empty->numUndoCommands(), 0u);
}

// Notes, for each collision, the colliding parameter and how many ranges the
// action had by then; changes nothing.
struct Recorder : OrvMediaLib::MergeActionCmdCollisionStrategy {
  explicit Recorder(std::vector<std::string>& calls) : log(calls) {}
  Recorder* clone() const override { return new Recorder(log); }
  void execute(OrvMediaLib::OrvMultiCommand*, boost::shared_ptr<ParameterRange> range,
               boost::shared_ptr<const Action> action) override {
    log.push_back(range->parameter()->name() + " " + std::to_string(action->numParameterRanges()));
  }
  std::vector<std::string>& log;
};

TEST(MergeActionCmdTest, CallersStrategySeesEachCollisionAfterTheAdds) {
  const Zoomed zoomed;
  ActionDescription description = zoomHarderAndFade();
  description.addParameterRange(
      {"translation1", OrvMediaLib::OrigToModified(), OrvMediaLib::ScaleTransform(), 1.0});
  std::vector<std::string> calls;
  boost::shared_ptr<MergeActionCmd> command;
  {
    Recorder strategy(calls);
    command = MergeActionCmd::create(zoomed.media, description, zoomed.action, strategy);
  }
  zoomed.project->orvExecute(command);
  EXPECT_EQ(calls, (std::vector<std::string>{"scale0 5", "translation1 5"}));
  EXPECT_EQ(command->numUndoCommands(), 1u);
}

}  // namespace
}  // namespace actioncmdtest
