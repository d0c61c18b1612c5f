// The four automatic zoom commands through the project's history, with a
// scripted engine and with the reference engine.

#include "zoomdrift/ScreenProjectSupport.h"

#include "actions/Action.h"
#include "actions/ActionBin.h"
#include "actions/OrigToModified.h"
#include "actions/ParameterRange.h"
#include "commands/AddActionCmd.h"
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
typedef KelMediaLib::Range<long long> R;

const Rectangle kTopLeft = {0, 640, 0, 360};

struct Zoomed {
  R range;
  // Left and right values of scale0, translation0, translation1.
  std::vector<double> values;
};

bool operator==(const Zoomed& a, const Zoomed& b) {
  return a.range == b.range && a.values == b.values;
}
std::ostream& operator<<(std::ostream& out, const Zoomed& z) {
  out << "(" << z.range.start << "," << z.range.duration << ")";
  for (double v : z.values) out << " " << v;
  return out;
}

// The zoom actions of the recording in `bin`, in order of time.
std::vector<Zoomed> zooms(const ScreenProject& screen, const boost::shared_ptr<const ActionBin>& bin) {
  std::vector<Zoomed> found;
  const auto actions = bin->mediasActions(screen.video);
  for (const auto& action : *actions) {
    Zoomed z = {action->timeRange(), {}};
    const auto ranges = action->parameterRanges();
    for (const auto& range : *ranges) {
      const std::string& name = range->parameter()->name();
      if (name == "scale0" || name == "translation0" || name == "translation1") {
        z.values.push_back(range->leftKeyframe()->value());
        z.values.push_back(range->rightKeyframe()->value());
      }
    }
    found.push_back(z);
  }
  return found;
}

// The key frames of every parameter that a zoom or a crop animates, as
// text: "name: time=value ...", one line each.
std::string animated(const ScreenProject& screen) {
  std::ostringstream out;
  for (const char* name : {"scale0", "scale1", "translation0", "translation1", "translation2",
                           "rotation0", "rotation1", "rotation2", "geometryCrop0", "geometryCrop1",
                           "geometryCrop2", "geometryCrop3", "sourceCrop0", "sourceCrop1",
                           "sourceCrop2", "sourceCrop3"}) {
    out << name << ":";
    const auto parameter = boost::dynamic_pointer_cast<KelMediaLib::Parameter<double>>(
        screen.video->parameterNamed(name));
    for (const auto& frame : parameter->keyFrames()) out << " " << frame->time() << "=" << frame->value();
    out << "\n";
  }
  return out.str();
}

class ZoomdriftCommandsTest : public ::testing::Test {
 protected:
  ZoomdriftCommandsTest() : screen("commands"), engine(boost::make_shared<ScriptedEngine>()) {
    Recording r;
    r.move(0, 100, 100, 60, 800, 500).stay(61, 900, 800, 500).click(70);
    screen.attach(r.params);
    bin = screen.project->zdActionBin();
  }

  /// Runs `command`, checks that undo gives back the animated parameters'
  /// key frames and the bins' actions, and that redo gives back the same
  /// actions and key frames. With `wholeText`, the project file's text too.
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
  // Each action's right side is the key frame; the fade runs ahead of it.
  // The top left quarter: scale 2, centre (320, 540) against (640, 360).
  EXPECT_EQ((std::vector<Zoomed>{{R(400, 100), {1, 2, 0, 640, 0, -360}},
                                 {R(600, 100), {2, 1, 640, 0, -360, 0}}}),
            zooms(screen, bin));
  const auto action = bin->mediasActions(screen.video)->front();
  const char* const names[] = {"scale0",       "scale1",        "translation0",  "translation1",
                               "translation2", "rotation0",     "rotation1",     "rotation2",
                               "geometryCrop0", "geometryCrop1", "geometryCrop2", "geometryCrop3"};
  const auto ranges = action->parameterRanges();
  ASSERT_EQ(12u, ranges->size());
  std::size_t i = 0;
  for (const auto& range : *ranges) {
    EXPECT_EQ(names[i++], range->parameter()->name());
    EXPECT_TRUE(dynamic_cast<const OrigToModified*>(&range->modifier()));
  }
  // The engine worked on the recording with the canvas as its target.
  ASSERT_EQ(1u, engine->asked.size());
  const ZoomdriftNS::Params& asked = engine->asked.front();
  EXPECT_EQ(1280, asked.targetWidth());
  EXPECT_EQ(720, asked.targetHeight());
  EXPECT_EQ(100, asked.fadeDuration());
  EXPECT_EQ(900, asked.clipStop());
  EXPECT_EQ(1u, asked.cursorActions().size());
  EXPECT_EQ(0u, screen.project->actionBin()->numActions());
}

TEST_F(ZoomdriftCommandsTest, NothingToAddOrNothingToAddFrom) {
  // No key frames: a command that adds nothing, and undoes as such.
  runUndoRedo(ZoomdriftAddActionsCmd::create(screen.video, engine, 100, bin, 1280, 720));
  runUndoRedo(ZoomdriftAddActionsWithKeyFramesCmd::create(screen.video, nullptr, 100, bin, 1280, 720));
  EXPECT_EQ(0u, bin->numActions());

  ScreenProject bare("bare");
  const auto history = bare.project->commandHistory().numCommands();
  const std::string text = "attempting to apply zoomdrift to a media without screen meta data";
  const auto bareBin = bare.project->zdActionBin();
  const boost::shared_ptr<OrvCommand> refused[] = {
      ZoomdriftAddActionsCmd::create(bare.video, engine, 100, bareBin, 1280, 720),
      ZoomdriftAddActionAtTimeCmd::create(bare.video, engine, 100, 100, bareBin, 1280, 720),
      ZoomdriftAddActionsWithKeyFramesCmd::create(
          bare.video, ZoomdriftAddActionUtil::KeyFrames(new KeyFrames{{500, kWhole}}), 100,
          bareBin, 1280, 720)};
  for (const auto& command : refused) {
    EXPECT_EQ(text, failure([&] { bare.project->orvExecute(command); }));
  }
  EXPECT_EQ(history, bare.project->commandHistory().numCommands());

  EXPECT_EQ("ZoomdriftAddActionsCmd: no engine given", failure([&] {
              ZoomdriftAddActionsCmd::create(screen.video, nullptr, 100, bin, 1280, 720);
            }));
  EXPECT_EQ("ReplaceActionWithZoomdriftAtTimeCmd: no action given", failure([&] {
              ReplaceActionWithZoomdriftAtTimeCmd::create(nullptr, screen.video, engine, bin, 1, 1);
            }));
}

TEST_F(ZoomdriftCommandsTest, AddActionAtTimeAsksForTheMomentTheZoomArrives) {
  engine->atTime = kTopLeft;
  runUndoRedo(ZoomdriftAddActionAtTimeCmd::create(screen.video, engine, 200, 30, bin, 1280, 720));
  EXPECT_EQ((std::vector<long long>{230}), engine->askedTimes);
  EXPECT_EQ((std::vector<Zoomed>{{R(200, 30), {1, 2, 0, 640, 0, -360}}}), zooms(screen, bin));

  // An engine that can't answer: its text on standard output, nothing added,
  // and the command stands in the history.
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
  screen.project->orvExecute(ZoomdriftAddActionsCmd::create(screen.video, engine, 50, bin, 1280, 720));
  const auto old = bin->mediasActions(screen.video)->front();
  engine->atTime = kTopLeft;
  runUndoRedo(ReplaceActionWithZoomdriftAtTimeCmd::create(old, screen.video, engine, bin, 1280, 720));
  EXPECT_EQ((std::vector<long long>{350}), engine->askedTimes);
  EXPECT_EQ((std::vector<Zoomed>{{R(300, 50), {1, 2, 0, 640, 0, -360}}}), zooms(screen, bin));
  EXPECT_FALSE(bin->containsAction(old));
  screen.project->undo();
  EXPECT_TRUE(bin->containsAction(old));

  // Without metadata with records it leaves the action alone, silently.
  ScreenProject bare("replace-bare");
  Recording empty;
  const auto kept = boost::make_shared<ScriptedEngine>();
  kept->keyFrames = {{350, kWhole}};
  bare.attach(empty.params);
  const auto zdBin = bare.project->zdActionBin();
  bare.project->orvExecute(ZoomdriftAddActionsCmd::create(bare.video, kept, 50, zdBin, 1280, 720));
  const auto action = zdBin->mediasActions(bare.video)->front();
  for (const auto& media : {bare.video, boost::shared_ptr<VMFile>()}) {
    bare.project->orvExecute(
        ReplaceActionWithZoomdriftAtTimeCmd::create(action, media, kept, zdBin, 1280, 720));
    EXPECT_TRUE(zdBin->containsAction(action));
  }
  EXPECT_TRUE(kept->askedTimes.empty());
}

TEST_F(ZoomdriftCommandsTest, KeyFramesAreHandedOnByTheirFirstRun) {
  const auto command = ZoomdriftAddActionsWithKeyFramesCmd::create(
      screen.video, ZoomdriftAddActionUtil::KeyFrames(new KeyFrames{{300, kTopLeft}, {600, kWhole}}),
      100, bin, 1280, 720);
  const std::unique_ptr<ZoomdriftAddActionsWithKeyFramesCmd> copy(command->clone());
  runUndoRedo(command);
  const auto made = zooms(screen, bin);
  EXPECT_EQ((std::vector<R>{R(200, 100), R(500, 100)}),
            (std::vector<R>{made[0].range, made[1].range}));
  // A copy made afterwards has none; one made before has them all.
  screen.project->undo();
  ASSERT_TRUE(screen.project->orvExecute(boost::shared_ptr<OrvCommand>(command->clone())));
  EXPECT_EQ(0u, bin->numActions());
  ASSERT_TRUE(screen.project->orvExecute(boost::shared_ptr<OrvCommand>(copy->clone())));
  EXPECT_EQ(made, zooms(screen, bin));

  const std::pair<std::string, std::string> descriptions[] = {
      {command->description(), "ZoomdriftAddActionsWithKeyFramesCmd"},
      {ZoomdriftAddActionsCmd::create(screen.video, engine, 1, bin, 1, 1)->description(),
       "ZoomdriftAddActionsCmd"},
      {ZoomdriftAddActionAtTimeCmd::create(screen.video, engine, 1, 1, bin, 1, 1)->description(),
       "ZoomdriftAddActionAtTimeCmd"},
      // The replacement answers with the text of the command that does the work.
      {ReplaceActionWithZoomdriftAtTimeCmd::create(bin->mediasActions(screen.video)->front(),
                                                   screen.video, engine, bin, 1, 1)
           ->description(),
       "ZoomdriftAddActionAtTimeCmd"}};
  for (const auto& d : descriptions) EXPECT_EQ(d.second, d.first);
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

// Disabled: AddActionCmd's undo leaves the interpolater companions that the
// add set ("eioe" for "linr"), a known fault of the exact-undo work.
TEST_F(ZoomdriftCommandsTest, DISABLED_UndoGivesBackTheProjectFileByteForByte) {
  engine->keyFrames = {{500, kTopLeft}, {700, kWhole}};
  runUndoRedo(ZoomdriftAddActionsCmd::create(screen.video, engine, 100, bin, 1280, 720), true);
  runUndoRedo(ZoomdriftAddActionAtTimeCmd::create(screen.video, engine, 200, 30, bin, 1280, 720),
              true);
  runUndoRedo(ReplaceActionWithZoomdriftAtTimeCmd::create(bin->mediasActions(screen.video)->back(),
                                                          screen.video, engine, bin, 1280, 720),
              true);
  runUndoRedo(ZoomdriftAddActionsWithKeyFramesCmd::create(
                  screen.video, ZoomdriftAddActionUtil::KeyFrames(new KeyFrames{{800, kTopLeft}}),
                  50, bin, 1280, 720),
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
  const auto zoom = bin->mediasActions(screen.video)->front();
  EXPECT_EQ(R(200, 50), zoom->timeRange());
  EXPECT_EQ(400, zoom->parametricTimeRange().start);
  EXPECT_EQ(50, engine->asked.front().fadeDuration());

  const auto crops = screen.project->actionBin();
  runUndoRedo(boost::make_shared<Group>([&](OrvMultiCommand* group) {
    ZoomdriftAddActionUtil::setSrcCropWithZoomdriftKeyframes(
        group, crops, ZoomdriftAddActionUtil::KeyFrames(new KeyFrames{{1000, {10, 1270, 20, 700}}}),
        screen.video, 100);
  }));
  const auto crop = crops->mediasActions(screen.video)->front();
  EXPECT_EQ(900, crop->parametricTimeRange().start);
  std::vector<double> trims;
  const auto ranges = crop->parameterRanges();
  for (const auto& range : *ranges) trims.push_back(range->rightKeyframe()->value());
  EXPECT_EQ((std::vector<double>{10, 20, 10, 20}), trims);
}

TEST(ZoomdriftEndToEndTest, ReferenceEngineZoomsARecordingOfTheProject) {
  ScreenProject screen("end-to-end");
  Recording r;
  r.move(0, 100, 100, 60, 800, 500).stay(61, 900, 800, 500).click(70);
  screen.attach(r.params);
  const auto bin = screen.project->zdActionBin();
  const std::string before = animated(screen);
  ASSERT_TRUE(screen.project->orvExecute(ZoomdriftAddActionsCmd::create(
      screen.video, ZoomdriftNS::FollowEngine::create(), 15, bin, 1280, 720)));
  // Key frames at 70 (around the click at (800, 500)) and 175 (back out):
  // the rectangle {480, 1120, 320, 680} at twice the size, its centre
  // (800, 220) on the flipped axis, moved to the picture's (640, 360).
  EXPECT_EQ((std::vector<Zoomed>{{R(55, 15), {1, 2, 0, -320, 0, 280}},
                                 {R(160, 15), {2, 1, -320, 0, 280, 0}}}),
            zooms(screen, bin));
  const std::string after = screen.xml();
  const std::size_t zd = after.find("name=\"zdActionBin\"");
  ASSERT_NE(std::string::npos, zd);
  const std::size_t first = after.find("timeRange=\"(55,15)\"", zd);
  const std::size_t second = after.find("timeRange=\"(160,15)\"", first);
  EXPECT_LT(second, after.find("name=\"audioActionBin\"", zd));

  const std::string animatedAfter = animated(screen);
  const auto actions = *bin->mediasActions(screen.video);
  screen.project->undo();
  EXPECT_EQ(0u, bin->numActions());
  EXPECT_EQ(before, animated(screen));
  screen.project->redo();
  EXPECT_EQ(actions, *bin->mediasActions(screen.video));
  EXPECT_EQ(animatedAfter, animated(screen));
  EXPECT_EQ(after, screen.xml());
}

}  // namespace
}  // namespace zoomtest
