// The four automatic zoom commands through the project's history, with a
// scripted engine and with the reference engine.

#include "zoomdrift/ScreenProjectSupport.h"

#include "actions/Action.h"
#include "actions/ActionBin.h"
#include "actions/OrigToModified.h"
#include "actions/ParameterRange.h"
#include "commands/ReplaceActionWithZoomdriftAtTimeCmd.h"
#include "commands/ZoomdriftAddActionAtTimeCmd.h"
#include "commands/ZoomdriftAddActionUtil.h"
#include "commands/ZoomdriftAddActionsCmd.h"
#include "commands/ZoomdriftAddActionsWithKeyFramesCmd.h"
#include "media/commands/StretchCmd.h"
#include "media/project/CommandHistory.h"
#include "values/Parameter.h"
#include "zoomdrift/FollowEngine.h"

#include <gtest/gtest.h>

#include <functional>

namespace zoomtest {
namespace {

using namespace OrvMediaLib;
typedef ZoomdriftAddActionUtil::KeyFrames Owned;

const Rectangle kTopLeft = {0, 640, 0, 360};

// The actions of the recording in `bin` in time order, one line each: their
// range on the key frames' axis, then the left>right values of the ranges
// whose parameter name starts with one of `names`.
std::string actions(const ScreenProject& screen, const boost::shared_ptr<const ActionBin>& bin,
                    std::initializer_list<const char*> names = {"scale0", "translation0",
                                                                "translation1"}) {
  std::ostringstream out;
  const auto list = bin->mediasActions(screen.video);
  for (const auto& action : *list) {
    out << action->timeRange().start << "+" << action->timeRange().duration << ":";
    const auto ranges = action->parameterRanges();
    for (const auto& range : *ranges) {
      for (const char* name : names) {
        if (range->parameter()->name().rfind(name, 0) == 0) {
          out << " " << range->leftKeyframe()->value() << ">" << range->rightKeyframe()->value();
        }
      }
    }
    out << "\n";
  }
  return out.str();
}

// The key frames of every parameter that a zoom or a crop animates.
std::string animated(const ScreenProject& screen) {
  std::ostringstream out;
  const std::pair<const char*, int> vectors[] = {
      {"scale", 3}, {"translation", 3}, {"rotation", 3}, {"geometryCrop", 4}, {"sourceCrop", 4}};
  for (const auto& vector : vectors) {
    for (int i = 0; i < vector.second; ++i) {
      const auto parameter = boost::dynamic_pointer_cast<KelMediaLib::Parameter<double>>(
          screen.video->parameterNamed(vector.first + std::to_string(i)));
      for (const auto& frame : parameter->keyFrames())
        out << frame->time() << "=" << frame->value() << " ";
      out << "\n";
    }
  }
  return out.str();
}

class ZoomdriftCommandsTest : public ::testing::Test {
 protected:
  ZoomdriftCommandsTest() : screen("commands"), engine(boost::make_shared<ScriptedEngine>()) {
    screen.attach(Recording("move 0 100 100 60 800 500, stay 61 900 800 500, click 70").params);
    bin = screen.project->zdActionBin();
  }

  /// Runs `command`; undo must give back the animated parameters and the
  /// bins' actions (with `wholeText`, the project file's text), redo the
  /// same actions and key frames.
  void runUndoRedo(const boost::shared_ptr<OrvCommand>& command, bool wholeText = false) {
    const auto state = [&] {
      return (wholeText ? screen.xml() : animated(screen)) +
             std::to_string(screen.project->actionBin()->numActions());
    };
    const std::string before = state();
    const auto actionsBefore = *bin->mediasActions(screen.video);
    ASSERT_TRUE(screen.project->orvExecute(command));
    const std::string after = state();
    const auto actionsAfter = *bin->mediasActions(screen.video);
    for (int round = 0; round < 2; ++round) {
      screen.project->undo();
      EXPECT_EQ(before, state());
      EXPECT_EQ(actionsBefore, *bin->mediasActions(screen.video));
      screen.project->redo();
      EXPECT_EQ(after, state());
      EXPECT_EQ(actionsAfter, *bin->mediasActions(screen.video));
    }
  }

  ScreenProject screen;
  boost::shared_ptr<ScriptedEngine> engine;
  boost::shared_ptr<const ActionBin> bin;
};

TEST_F(ZoomdriftCommandsTest, AddActionsMakesAZoomThatStandsAtEachKeyFrame) {
  engine->keyFrames = {{500, kTopLeft}, {700, kWhole}};
  runUndoRedo(ZoomdriftAddActionsCmd::create(screen.video, engine, 100, bin, 1280, 720));
  // Each action ends on its key frame. The top left quarter: scale 2, its
  // centre (320, 540) on the flipped axis moved to the picture's (640, 360);
  // rotation and geometry crop at 0.
  EXPECT_EQ(
      "400+100: 1>2 1>2 0>640 0>-360 0>0 0>0 0>0 0>0 0>0 0>0 0>0 0>0\n"
      "600+100: 2>1 2>1 640>0 -360>0 0>0 0>0 0>0 0>0 0>0 0>0 0>0 0>0\n",
      actions(screen, bin, {"scale", "translation", "rotation", "geometryCrop"}));
  std::string names;
  const auto ranges = bin->mediasActions(screen.video)->front()->parameterRanges();
  for (const auto& range : *ranges) {
    names += range->parameter()->name() + " ";
    EXPECT_TRUE(dynamic_cast<const OrigToModified*>(&range->modifier()));
  }
  EXPECT_EQ(
      "scale0 scale1 translation0 translation1 translation2 rotation0 rotation1 rotation2 "
      "geometryCrop0 geometryCrop1 geometryCrop2 geometryCrop3 ",
      names);
  // The engine saw the recording with the canvas as its target.
  ASSERT_EQ(1u, engine->asked.size());
  const ZoomdriftNS::Params& asked = engine->asked.front();
  EXPECT_EQ((std::vector<long long>{1280, 720, 100, 0, 900, 1}),
            (std::vector<long long>{asked.targetWidth(), asked.targetHeight(), asked.fadeDuration(),
                                    asked.clipStart(), asked.clipStop(),
                                    static_cast<long long>(asked.cursorActions().size())}));
}

TEST_F(ZoomdriftCommandsTest, NothingToAddOrNothingToAddFrom) {
  runUndoRedo(ZoomdriftAddActionsCmd::create(screen.video, engine, 100, bin, 1280, 720));
  runUndoRedo(ZoomdriftAddActionsWithKeyFramesCmd::create(screen.video, nullptr, 100, bin, 1, 1));
  EXPECT_EQ(0u, bin->numActions());

  ScreenProject bare("bare");
  const auto history = bare.project->commandHistory().numCommands();
  const auto bareBin = bare.project->zdActionBin();
  const boost::shared_ptr<OrvCommand> refused[] = {
      ZoomdriftAddActionsCmd::create(bare.video, engine, 100, bareBin, 1280, 720),
      ZoomdriftAddActionAtTimeCmd::create(bare.video, engine, 100, 100, bareBin, 1280, 720),
      ZoomdriftAddActionsWithKeyFramesCmd::create(bare.video, Owned(new KeyFrames{{500, kWhole}}),
                                                  100, bareBin, 1280, 720)};
  for (const auto& command : refused) {
    EXPECT_EQ("attempting to apply zoomdrift to a media without screen meta data",
              failure([&] { bare.project->orvExecute(command); }));
  }
  EXPECT_EQ(history, bare.project->commandHistory().numCommands());
}

TEST_F(ZoomdriftCommandsTest, AddActionAtTimeAsksForTheMomentTheZoomArrives) {
  engine->atTime = kTopLeft;
  runUndoRedo(ZoomdriftAddActionAtTimeCmd::create(screen.video, engine, 200, 30, bin, 1280, 720));
  EXPECT_EQ((std::vector<long long>{230}), engine->askedTimes);
  EXPECT_EQ("200+30: 1>2 0>640 0>-360\n", actions(screen, bin));

  // An engine that can't answer: its text on standard output, nothing
  // added, and the command stands in the history.
  engine->fails = true;
  const auto history = screen.project->commandHistory().numCommands();
  ::testing::internal::CaptureStdout();
  ASSERT_TRUE(screen.project->orvExecute(
      ZoomdriftAddActionAtTimeCmd::create(screen.video, engine, 400, 30, bin, 1280, 720)));
  EXPECT_EQ("ZoomdriftException while calling calcZoomdriftKeyframeAtTime: no region\n",
            ::testing::internal::GetCapturedStdout());
  EXPECT_EQ(1u, bin->numActions());
  EXPECT_EQ(history + 1, screen.project->commandHistory().numCommands());
}

TEST_F(ZoomdriftCommandsTest, ReplaceActionPutsAFreshZoomOverTheSameStretch) {
  engine->keyFrames = {{350, kWhole}};
  screen.project->orvExecute(
      ZoomdriftAddActionsCmd::create(screen.video, engine, 50, bin, 1280, 720));
  const auto old = bin->mediasActions(screen.video)->front();
  engine->atTime = kTopLeft;
  const auto replace =
      ReplaceActionWithZoomdriftAtTimeCmd::create(old, screen.video, engine, bin, 1280, 720);
  // The text of the command that does the work.
  EXPECT_EQ("ZoomdriftAddActionAtTimeCmd", replace->description());
  runUndoRedo(replace);
  EXPECT_EQ((std::vector<long long>{350}), engine->askedTimes);
  EXPECT_EQ("300+50: 1>2 0>640 0>-360\n", actions(screen, bin));
  EXPECT_FALSE(bin->containsAction(old));
  screen.project->undo();
  EXPECT_TRUE(bin->containsAction(old));

  // Without a media whose metadata holds records it leaves the action alone.
  ScreenProject bare("replace-bare");
  bare.attach(Recording().params);
  const auto zdBin = bare.project->zdActionBin();
  bare.project->orvExecute(
      ZoomdriftAddActionsCmd::create(bare.video, engine, 50, zdBin, 1280, 720));
  const auto action = zdBin->mediasActions(bare.video)->front();
  for (const auto& media : {bare.video, boost::shared_ptr<VMFile>()}) {
    bare.project->orvExecute(
        ReplaceActionWithZoomdriftAtTimeCmd::create(action, media, engine, zdBin, 1280, 720));
    EXPECT_TRUE(zdBin->containsAction(action));
  }
  EXPECT_EQ(1u, engine->askedTimes.size());
}

TEST_F(ZoomdriftCommandsTest, KeyFramesAreHandedOnByTheirFirstRun) {
  const auto command = ZoomdriftAddActionsWithKeyFramesCmd::create(
      screen.video, Owned(new KeyFrames{{300, kTopLeft}, {600, kWhole}}), 100, bin, 1280, 720);
  const std::unique_ptr<ZoomdriftAddActionsWithKeyFramesCmd> copy(command->clone());
  runUndoRedo(command);
  const std::string made = actions(screen, bin);
  EXPECT_EQ("200+100: 1>2 0>640 0>-360\n500+100: 2>1 640>0 -360>0\n", made);
  // A copy made afterwards has none; one made before has them all.
  screen.project->undo();
  screen.project->orvExecute(boost::shared_ptr<OrvCommand>(command->clone()));
  EXPECT_EQ(0u, bin->numActions());
  screen.project->orvExecute(boost::shared_ptr<OrvCommand>(copy->clone()));
  EXPECT_EQ(made, actions(screen, bin));
}

TEST_F(ZoomdriftCommandsTest, ACollisionRefusesTheWholeCommand) {
  const std::string before = animated(screen);
  // The second zoom's fade starts before the first has arrived.
  engine->keyFrames = {{500, kTopLeft}, {550, kWhole}};
  EXPECT_EQ("unable to add action, it collides with another existing action", failure([&] {
              screen.project->orvExecute(
                  ZoomdriftAddActionsCmd::create(screen.video, engine, 100, bin, 1280, 720));
            }));
  EXPECT_EQ(before, animated(screen));
  EXPECT_EQ(0u, bin->numActions());
}

TEST_F(ZoomdriftCommandsTest, UndoGivesBackTheProjectFileByteForByte) {
  engine->keyFrames = {{500, kTopLeft}, {700, kWhole}};
  runUndoRedo(ZoomdriftAddActionsCmd::create(screen.video, engine, 100, bin, 1280, 720), true);
  runUndoRedo(ZoomdriftAddActionAtTimeCmd::create(screen.video, engine, 200, 30, bin, 1280, 720),
              true);
  runUndoRedo(ReplaceActionWithZoomdriftAtTimeCmd::create(bin->mediasActions(screen.video)->back(),
                                                          screen.video, engine, bin, 1280, 720),
              true);
  runUndoRedo(ZoomdriftAddActionsWithKeyFramesCmd::create(
                  screen.video, Owned(new KeyFrames{{800, kTopLeft}}), 50, bin, 1280, 720),
              true);
  const std::string before = screen.xml();
  engine->keyFrames = {{850, kTopLeft}, {860, kWhole}};
  EXPECT_NE("", failure([&] {
              screen.project->orvExecute(
                  ZoomdriftAddActionsCmd::create(screen.video, engine, 20, bin, 1280, 720));
            }));
  EXPECT_EQ(before, screen.xml());
}

// Runs `body` as a group's logic.
struct Group : OrvMultiCommand {
  explicit Group(std::function<void(OrvMultiCommand*)> run) : body(std::move(run)) {}
  void executeCommands(KelMediaLib::CommandHandler const*) override { body(this); }
  std::function<void(OrvMultiCommand*)> body;
};

TEST_F(ZoomdriftCommandsTest, ZoomsEndOnTheKeyFrameAtAnySpeedCropsStartWhereTheyAreTold) {
  screen.run(KelMediaLib::StretchCmd::create(screen.track, screen.video, 2.0));
  engine->keyFrames = {{250, kTopLeft}};
  runUndoRedo(ZoomdriftAddActionsCmd::create(screen.video, engine, 100, bin, 1280, 720));
  // Recording time 250 is edit time 500: the zoom's own time is (400, 100),
  // on the key frames' axis (200, 50). The engine spaces key frames by the
  // fade in recording time.
  EXPECT_EQ("200+50:\n", actions(screen, bin, {}));
  EXPECT_EQ(400, bin->mediasActions(screen.video)->front()->parametricTimeRange().start);
  EXPECT_EQ(50, engine->asked.front().fadeDuration());

  const auto crops = screen.project->actionBin();
  runUndoRedo(boost::make_shared<Group>([&](OrvMultiCommand* group) {
    ZoomdriftAddActionUtil::setSrcCropWithZoomdriftKeyframes(
        group, crops, Owned(new KeyFrames{{1000, {10, 1270, 20, 700}}}), screen.video, 100);
  }));
  EXPECT_EQ(900, crops->mediasActions(screen.video)->front()->parametricTimeRange().start);
  EXPECT_EQ("450+50: 0>10 0>20 0>10 0>20\n", actions(screen, crops, {"sourceCrop"}));
}

TEST(ZoomdriftEndToEndTest, ReferenceEngineZoomsARecordingOfTheProject) {
  ScreenProject screen("end-to-end");
  screen.attach(Recording("move 0 100 100 60 800 500, stay 61 900 800 500, click 70").params);
  const auto bin = screen.project->zdActionBin();
  const std::string before = animated(screen);
  ASSERT_TRUE(screen.project->orvExecute(ZoomdriftAddActionsCmd::create(
      screen.video, ZoomdriftNS::FollowEngine::create(), 15, bin, 1280, 720)));
  // Key frames at 70 (around the click at (800, 500)) and 175 (back out):
  // the rectangle {480, 1120, 320, 680} at twice the size, its centre
  // (800, 220) on the flipped axis moved to the picture's (640, 360).
  EXPECT_EQ("55+15: 1>2 0>-320 0>280\n160+15: 2>1 -320>0 280>0\n", actions(screen, bin));
  const std::string after = screen.xml(), animatedAfter = animated(screen);
  // The project file holds them in the automatic zoom's bin.
  const std::size_t zd = after.find("name=\"zdActionBin\"");
  const std::size_t first = after.find("timeRange=\"(55,15)\"", zd);
  EXPECT_LT(after.find("timeRange=\"(160,15)\"", first), after.find("name=\"audioActionBin\"", zd));

  const auto made = *bin->mediasActions(screen.video);
  screen.project->undo();
  EXPECT_EQ(0u, bin->numActions());
  EXPECT_EQ(before, animated(screen));
  screen.project->redo();
  EXPECT_EQ(made, *bin->mediasActions(screen.video));
  EXPECT_EQ(animatedAfter, animated(screen));
  EXPECT_EQ(after, screen.xml());
}

TEST(ZoomdriftEndToEndTest, EveryCommandWorksWithTheReferenceEngine) {
  ScreenProject screen("reference");
  screen.attach(Recording("move 0 100 100 60 800 500, stay 61 900 800 500, click 70").params);
  const auto bin = screen.project->zdActionBin();
  const auto engine = ZoomdriftNS::FollowEngine::create();
  // At 100 + 15 the zoom of the click (from 70 on) is in force.
  screen.project->orvExecute(
      ZoomdriftAddActionAtTimeCmd::create(screen.video, engine, 100, 15, bin, 1280, 720));
  EXPECT_EQ("100+15: 1>2 0>-320 0>280\n", actions(screen, bin));
  const auto old = bin->mediasActions(screen.video)->front();
  screen.project->orvExecute(
      ReplaceActionWithZoomdriftAtTimeCmd::create(old, screen.video, engine, bin, 1280, 720));
  EXPECT_EQ("100+15: 1>2 0>-320 0>280\n", actions(screen, bin));
  EXPECT_FALSE(bin->containsAction(old));
  screen.project->undo();
  screen.project->undo();
  // The engine's own key frames, handed over.
  screen.project->orvExecute(ZoomdriftAddActionsWithKeyFramesCmd::create(
      screen.video,
      engine->calcZoomdriftKeyframes(ZoomdriftAddActionUtil::genParams(screen.video, 15, 1280, 720),
                                     0),
      15, bin, 1280, 720));
  EXPECT_EQ("55+15: 1>2 0>-320 0>280\n160+15: 2>1 -320>0 280>0\n", actions(screen, bin));
  // The engine's refusal of an empty canvas is printed.
  ::testing::internal::CaptureStdout();
  screen.project->orvExecute(
      ZoomdriftAddActionAtTimeCmd::create(screen.video, engine, 300, 15, bin, 0, 720));
  EXPECT_EQ(
      "ZoomdriftException while calling calcZoomdriftKeyframeAtTime: zoomdrift: the target size "
      "0x720 is empty\n",
      ::testing::internal::GetCapturedStdout());
}

}  // namespace
}  // namespace zoomtest
