#include "commands/ActionCommandTestSupport.h"

#include "actions/ActionCreator.h"
#include "actions/ModifiedToOrig.h"
#include "actions/ParameterRange.h"
#include "actions/ParameterRangeCreator.h"
#include "commands/AddActionCmd.h"
#include "commands/AddParameterRangeCmd.h"
#include "commands/RemoveActionCmd.h"
#include "commands/RemoveAllActionsForMediaCmd.h"
#include "commands/RemoveParameterRangeCmd.h"
#include "commands/ReplaceActionCmd.h"
#include "media/commands/StretchCmd.h"

#include <gtest/gtest.h>

#include <boost/make_shared.hpp>

namespace actioncmdtest {
namespace {

using namespace OrvMediaLib;
using KelMediaLib::Range;

/// A range whose left value is the scale doubled and whose right one is the
/// scale itself, so that taking the action off leaves the doubled value behind.
ActionDescription::RangeDescription fallingScale() {
  return {"scale0", ModifiedToOrig(), ScaleTransform(), 2.0};
}

TEST(ActionCommandsTest, UndoWritesTheValueBeforeOnTheKeyFrameItFindsRedoOnTheStart) {
  struct Case {
    const char* name;
    double scalar;
    std::vector<std::pair<long long, double>> frames;  // in place of the resting one
    long long start, duration;                         // the media's own time
    const char* added;
  } const cases[] = {
      {"at rest", 1, {{0, 1}}, 100, 100, "100=2 200=1"},
      {"at rest, twice as slow", 2, {{0, 1}}, 200, 200, "100=2 200=1"},
      {"starting at 0: the only key frame", 1, {{0, 1}}, 0, 100, "0=2 100=1"},
      {"only later key frames: the next one",
       1,
       {{500, 3}, {600, 4}},
       100,
       100,
       "100=6 200=3 500=3 600=4"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    const Studio studio;
    const auto media = studio.addMedia(0);
    studio.project->execute(KelMediaLib::StretchCmd::create(studio.track, media, c.scalar));
    const auto scale = parameter(*media, "scale0");
    for (const auto& frame : c.frames) scale->addKeyFrame(frame.first, frame.second);
    if (c.frames.front().first != 0) scale->removeKeyFrame(0);
    const std::string before = keyFrames(*scale);

    ActionDescription description(ActionDescription::CENTER_ACTION);
    description.addParameterRange(fallingScale());
    const auto command =
        AddActionCmd::create(media, studio.project->actionBin(), description, c.start, c.duration);
    studio.project->orvExecute(command);
    EXPECT_EQ(keyFrames(*scale), c.added);
    studio.project->undo();
    EXPECT_EQ(keyFrames(*scale), before);
    studio.project->redo();
    EXPECT_EQ(keyFrames(*scale), c.added);
  }
}

TEST(ActionCommandsTest, AddActionWithoutRangesUnknownParameterOrCollision) {
  const Studio studio;
  const auto media = studio.addMedia(0);
  const auto bin = studio.project->actionBin();
  const auto run = [&](const ActionDescription& description, long long start) {
    const auto command = AddActionCmd::create(media, bin, description, start, 50);
    const std::string message = failure([&] { studio.project->orvExecute(command); });
    return message + (command->createdAction() ? "+" : "");
  };
  const std::string atRest = keyFrames(*media, {"scale0", "opacity"});

  EXPECT_EQ(run(ActionDescription(ActionDescription::CENTER_ACTION), 100), "+");
  EXPECT_EQ(bin->mediasActions(media)->front()->timeRange(), Range<long long>(100, 50));
  ActionDescription unknown(ActionDescription::CENTER_ACTION);
  unknown.addParameterRange({"zoom", OrigToModified(), ScaleTransform(), 2.0});
  EXPECT_EQ(run(unknown, 300),
            "AddActionCmd: the media has no parameter of doubles named \"zoom\"");
  EXPECT_EQ(run(zoom(2, 0, 0), 120),
            "unable to add action, it collides with another existing action");
  EXPECT_EQ(keyFrames(*media, {"scale0", "opacity"}), atRest);

  // The failures left no entry: one undo takes the first action away.
  studio.project->undo();
  EXPECT_EQ(bin->numActions(), 0u);
  EXPECT_EQ(keyFrames(*media, {"scale0", "opacity"}), atRest);
}

TEST(ActionCommandsTest, RangesComeAndGoWithTheirValues) {
  const Studio studio;
  const auto media = studio.addMedia(0);
  const auto& project = studio.project;
  const auto add = AddActionCmd::create(media, project->actionBin(), zoom(2, 10, 10), 100, 100);
  project->orvExecute(add);
  const auto target = add->createdAction();
  const auto names = {"scale0", "scale1", "translation0", "translation1"};
  const std::string zoomed = keyFrames(*media, names);

  // Off and on again: the range that comes drops the scale on the way, and
  // its undo writes the resting value back.
  const auto scaleRange = target->parameterRanges()->front();
  int pass = 0;
  project->orvExecute(RemoveParameterRangeCmd::create(target, scaleRange));
  EXPECT_EQ(keyFrames(*parameter(*media, "scale0")), "0=1");
  const auto falling = boost::make_shared<ParameterRange>(
      ParameterRangeCreator::createParamRange(media, fallingScale(), Range<long long>(100, 100)));
  project->orvExecute(AddParameterRangeCmd::create(target, falling));
  EXPECT_EQ(keyFrames(*parameter(*media, "scale0")), "100=2 200=1");
  for (const char* expected : {"0=1", "100=2 200=1", "0=1"}) {
    pass++ % 2 ? project->redo() : project->undo();
    EXPECT_EQ(keyFrames(*parameter(*media, "scale0")), expected);
  }
  project->undo();
  EXPECT_EQ(keyFrames(*media, names), zoomed);

  // The target takes the source's ranges and stays in its bin; a source
  // without ranges leaves it none.
  ActionDescription pan(ActionDescription::CENTER_ACTION);
  pan.addParameterRange({"translation1", OrigToModified(), TranslateTransform(), 5.0});
  for (const ActionDescription& description :
       {pan, ActionDescription(ActionDescription::CENTER_ACTION)}) {
    const auto source = ActionCreator::createAction(media, description, Range<long long>(100, 100));
    const auto replace = ReplaceActionCmd::create(source, target);
    project->orvExecute(replace);
    EXPECT_EQ(replace->numUndoCommands(), 4u + source->numParameterRanges());
    EXPECT_EQ(target->numParameterRanges(), source->numParameterRanges());
    EXPECT_TRUE(project->actionBin()->containsAction(target));
    EXPECT_EQ(keyFrames(*media, names),
              source->numParameterRanges()
                  ? "scale0: 0=1\nscale1: 0=1\ntranslation0: 0=0\ntranslation1: 100=0 200=5\n"
                  : "scale0: 0=1\nscale1: 0=1\ntranslation0: 0=0\ntranslation1: 0=0\n");
    project->undo();
    EXPECT_EQ(target->numParameterRanges(), 4);
    EXPECT_EQ(keyFrames(*media, names), zoomed);
  }
}

TEST(ActionCommandsTest, RemovingActionsKeepsThemForUndo) {
  const Studio studio;
  const auto media = studio.addMedia(0);
  const auto other = studio.addMedia(2000);
  const auto& project = studio.project;
  const auto actionBin = project->actionBin();
  const auto zdBin = project->zdActionBin();
  for (long long start : {300, 100}) {
    project->orvExecute(AddActionCmd::create(media, actionBin, zoom(2, 0, 0), start, 50));
  }
  project->orvExecute(AddActionCmd::create(
      media, zdBin, ActionDescription(ActionDescription::CENTER_ACTION), 500, 50));
  const ActionList inMain = *actionBin->mediasActions(media);
  const auto zoomed = keyFrames(*media, {"scale0"});

  const auto none = RemoveAllActionsForMediaCmd::create(other, actionBin);
  project->orvExecute(none);
  EXPECT_EQ(none->numUndoCommands(), 0u);
  const auto all = RemoveAllActionsForMediaCmd::create(media, actionBin);
  project->orvExecute(all);
  EXPECT_EQ(all->numUndoCommands(), 2u);
  EXPECT_FALSE(actionBin->hasMedia(media));
  EXPECT_EQ(zdBin->numActions(), 1u);
  EXPECT_EQ(keyFrames(*media, {"scale0"}), "scale0: 0=1\n");
  project->undo();
  EXPECT_EQ(*actionBin->mediasActions(media), inMain);
  EXPECT_EQ(keyFrames(*media, {"scale0"}), zoomed);

  const auto remove = RemoveActionCmd::create(zdBin->mediasActions(media)->front());
  for (int pass = 0; pass < 2; ++pass) {
    if (pass) {
      project->redo();
    } else {
      project->orvExecute(remove);
    }
    EXPECT_EQ(remove->bin(), zdBin);
    EXPECT_FALSE(zdBin->hasMedia(media));
    project->undo();
    EXPECT_TRUE(zdBin->containsAction(remove->action()));
  }
}

}  // namespace
}  // namespace actioncmdtest
