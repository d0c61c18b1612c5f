// One zoom added by hand, followed from the description to undo and redo.

#include "commands/ActionCommandTestSupport.h"

#include "actions/CenterAction.h"
#include "actions/ParameterRange.h"
#include "commands/AddActionCmd.h"
#include "commands/OrvCommandHandler.h"
#include "values/Interpolater.h"

#include <gtest/gtest.h>

namespace actioncmdtest {
namespace {

using OrvMediaLib::AddActionCmd;

TEST(RoadOfOneEditTest, ZoomAddedUndoneAndRedone) {
  const Studio studio;
  const auto media = studio.addMedia(500);
  const auto& project = studio.project;
  const auto names = {"scale0", "scale1", "translation0", "translation1"};
  // The picture sits off centre: the pan starts from there.
  parameter(*media, "translation0")->setKeyFrameValue(0, 4.0);
  const std::string atRest = keyFrames(*media, names);

  // 1, 2: the description and the command, run through the project.
  const auto command =
      AddActionCmd::create(media, project->actionBin(), zoom(2.0, 10.0, -6.0), 100, 100);
  const unsigned int entries = project->commandHistory().position();
  ASSERT_TRUE(project->orvExecute(command));

  // 3: the project handles the command's action edits and the history holds
  // one entry for it.
  EXPECT_EQ(command->orvCommandHandler(),
            static_cast<OrvMediaLib::OrvCommandHandler*>(project.get()));
  EXPECT_EQ(project->commandHistory().position(), entries + 1);

  // 5: a centre action with one range per parameter, values from the
  // parameters' state at the start.
  const boost::shared_ptr<Action> action = command->createdAction();
  ASSERT_TRUE(boost::dynamic_pointer_cast<OrvMediaLib::CenterAction>(action));
  EXPECT_EQ(action->timeRange(), KelMediaLib::Range<long long>(100, 100));
  ASSERT_EQ(action->numParameterRanges(), 4);

  // 6: in the bin asked for, by identity.
  EXPECT_EQ(project->actionBin()->mediasActions(media)->front(), action);
  EXPECT_EQ(project->actionBinForAction(action), project->actionBin());
  EXPECT_EQ(project->zdActionBin()->numActions(), 0u);

  // 7: the pairs took the resting key frames' places, and the zoom and pan
  // parameters ease.
  const std::string added = keyFrames(*media, names);
  EXPECT_EQ(added,
            "scale0: 100=1 200=2\n"
            "scale1: 100=1 200=2\n"
            "translation0: 100=4 200=14\n"
            "translation1: 100=0 200=-6\n");
  const auto ranges = action->parameterRanges();
  for (const auto& range : *ranges) {
    EXPECT_EQ(range->parameter()->keyFrame(range->leftTime()), range->leftKeyframe());
    EXPECT_EQ(range->parameter()->keyFrame(range->rightTime()), range->rightKeyframe());
    const auto companion = range->parameter()->interpolaterParameter();
    ASSERT_TRUE(companion);
    EXPECT_EQ(companion->keyFrames().front()->value(),
              (KelMediaLib::EaseInOutDoubleExponentialSigmoidInterpolater<double>::getInstance()));
  }

  // 8: undo takes the action out and gives each parameter its value from
  // before; redo puts the very same action back with the values from after.
  project->undo();
  EXPECT_EQ(project->actionBin()->numActions(), 0u);
  EXPECT_EQ(keyFrames(*media, names), atRest);
  project->redo();
  EXPECT_EQ(command->createdAction(), action);
  EXPECT_TRUE(project->actionBin()->containsAction(action));
  EXPECT_EQ(keyFrames(*media, names), added);
  project->undo();
  project->redo();
  EXPECT_EQ(command->createdAction(), action);
  EXPECT_EQ(keyFrames(*media, names), added);
}

}  // namespace
}  // namespace actioncmdtest
