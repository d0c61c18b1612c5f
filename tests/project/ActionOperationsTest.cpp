#include "project/InternalOrvProject.h"

#include "core/Observer.h"
#include "project/ProjectTestSupport.h"

#include <gtest/gtest.h>

#include <functional>
#include <vector>

namespace {

using namespace projecttest;

// Each case adds actions (left, right), removes the first, and looks at what
// is left: the resting key frame comes back, a pair at 0 keeps its left key
// frame, and the key frame now first takes the removed range's left value.
TEST_F(ProjectFixture, RemovingActionsKeepsTheTimeZeroRule) {
  struct Case {
    std::vector<std::pair<long long, long long>> pairs;
    Times afterAdding, afterRemoving;
  } const cases[] = {
      {{{100, 200}}, {100, 200}, {0}},
      {{{0, 200}}, {0, 200}, {0}},
      {{{100, 200}, {300, 400}}, {100, 200, 300, 400}, {300, 400}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.afterRemoving[0]);
    const auto box = addBox(2000);
    std::vector<boost::shared_ptr<CenterAction>> actions;
    for (const auto& pair : c.pairs) {
      actions.push_back(added(box, pair.first, pair.second));
    }
    EXPECT_EQ(c.afterAdding, timesOf(*box));
    const auto left = actions[0]->parameterRanges()->front()->leftKeyframe();
    const double leftValue = left->value();
    EXPECT_EQ(project->actionBin(), project->removeAction(actions[0]));
    EXPECT_EQ(c.afterRemoving, timesOf(*box));
    const auto first = box->opacity()->keyFrame(c.afterRemoving[0]);
    ASSERT_TRUE(first);
    EXPECT_EQ(leftValue, first->value());
    EXPECT_EQ(c.pairs[0].first == 0, first == left);
    EXPECT_FALSE(project->actionBinForAction(actions[0]));
  }
}

// The times at each notification of the parameter: a pair never passes
// through itself.
TEST_F(ProjectFixture, MoveActionMovesKeyFramesInASafeOrder) {
  struct Recorder : Observer {
    std::function<void()> onUpdate;
    void observerUpdate() override { onUpdate(); }
  };
  const std::pair<long long, std::vector<Times>> cases[] = {
      {10, {{100, 210}, {110, 210}}}, {-10, {{90, 200}, {90, 190}}}, {0, {}}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.first);
    const auto box = addBox(2000);
    const auto action = added(box, 100, 200);
    Recorder recorder;
    std::vector<Times> steps;
    recorder.onUpdate = [&] { steps.push_back(timesOf(*box)); };
    box->opacity()->attach(&recorder);
    project->moveAction(action, c.first);
    box->opacity()->detach(&recorder);
    EXPECT_EQ(c.second, steps);
    EXPECT_EQ(100 + c.first, action->timeRange().start);
  }
}

// A text box with a(100, 200) and b(300, 400) in the main bin, and `loose`
// (500, 600) in no bin and no parameter.
struct Scene {
  InternalOrvProject& p;
  boost::shared_ptr<TextBox> box;
  boost::shared_ptr<CenterAction> a, b, loose;
  void putLooseIn() const {
    const auto range = loose->parameterRanges()->front();
    ParameterRange::addRangesKeyframes(range->parameter(), range->leftKeyframe(),
                                       range->rightKeyframe(), nullptr, nullptr);
  }
};

boost::shared_ptr<CenterAction> scaled(const boost::shared_ptr<const Media>& box, long long left,
                                       long long right) {
  const auto action = boost::make_shared<CenterAction>(box);
  action->addParameterRange(*rangeOn(box, left, right, "scale0"));
  return action;
}

// A text box of `project` (of none if null), on no track.
boost::shared_ptr<TextBox> boxOf(const boost::shared_ptr<OrvProject>& project) {
  return TextBox::create("t", 1000, 10.0f, 10.0f, boost::weak_ptr<const ThreadSafe>(project));
}

// Each operation gives its message (none: it succeeds) and leaves the
// opacity's key frames at these times.
TEST_F(ProjectFixture, OperationsGiveTheirMessagesAndLeaveTheirStates) {
  const auto other = OrvProject::create(30, 1);
  const Times resting{100, 200, 300, 400};
  const std::string collision = "Action collision when moving",
                    noBin = "action doesn't exist inside any action bins",
                    past = "attempting to move a keyframe past another",
                    mismatch = "Range to remove and action range don't match";
  struct Case {
    std::function<void(const Scene&)> run;
    std::string message;
    Times times;
  } const cases[] = {
      {[](const Scene& s) { s.p.moveAction(s.b, -100); }, collision, resting},
      {[](const Scene& s) { s.p.moveAction(s.loose, 5); }, noBin, resting},
      {[](const Scene& s) { s.p.trimActionEnd(s.a, -150); }, past, resting},
      {[](const Scene& s) { s.p.trimActionStart(s.b, 5); }, "", {100, 200, 305, 400}},
      {[](const Scene& s) { s.p.trimActionEnd(s.a, 5); }, "", {100, 195, 300, 400}},
      {[](const Scene& s) { s.p.trimActionEnd(s.a, -5); }, "", {100, 205, 300, 400}},
      // The parameter keeps one key frame per time: no range of duration 0.
      {[](const Scene& s) { s.p.trimActionStart(s.a, 100); },
       "parameter \"opacity\": can't move the key frame at 100 to 200, which holds a key frame "
       "already",
       resting},
      {[](const Scene& s) { s.p.addParameterRange(s.a, rangeOn(s.box, 100, 150)); }, mismatch,
       resting},
      {[](const Scene& s) { s.p.addParameterRange(s.a, rangeOn(s.box, 100, 200)); },
       "Can't add parameter range because there's already a parameter range for the specified "
       "parameter",
       resting},
      {[](const Scene& s) {
         s.p.addParameterRange(s.a, rangeOn(s.box, 100, 200, "scale0"));
         EXPECT_EQ((Times{100, 200}), timesOf(*s.box, "scale0"));
       },
       "", resting},
      // Ranges on one parameter stay apart across bins: the key frame of the
      // one added would take the other's place.
      {[](const Scene& s) {
         s.p.addAction(s.p.zdActionBin(), scaled(s.box, 150, 180));
         s.p.addParameterRange(s.a, rangeOn(s.box, 100, 200, "scale0"));
       },
       "Can't add parameter range because another action animates scale0 over its time", resting},
      {[](const Scene& s) {
         s.p.addAction(s.p.zdActionBin(), scaled(s.box, 200, 250));
         s.p.addParameterRange(s.a, rangeOn(s.box, 100, 200, "scale0"));
       },
       "Can't add parameter range because another action animates scale0 over its time", resting},
      // The same for whole actions added or moved onto another bin's range.
      {[](const Scene& s) {
         s.p.addAction(s.p.zdActionBin(), scaled(s.box, 210, 230));
         s.p.addAction(s.p.actionBin(), scaled(s.box, 230, 240));
       },
       "Action collision: another action animates scale0 over its time", resting},
      {[](const Scene& s) {
         s.p.addAction(s.p.zdActionBin(), scaled(s.box, 210, 230));
         const auto mine = scaled(s.box, 250, 270);
         s.p.addAction(s.p.actionBin(), mine);
         s.p.moveAction(mine, -30);
       },
       "Action collision when moving", resting},
      // A trim that lengthens onto a neighbour animating another parameter.
      {[](const Scene& s) {
         s.p.addAction(s.p.actionBin(), scaled(s.box, 230, 260));
         s.p.trimActionEnd(s.a, -40);
       },
       "Action collision when trimming", resting},
      {[](const Scene& s) {
         s.p.addAction(s.p.actionBin(), scaled(s.box, 230, 260));
         s.p.trimActionStart(s.b, -50);
       },
       "Action collision when trimming", resting},
      {[](const Scene& s) { s.p.mergeParameterRange(s.a, rangeOn(s.box, 100, 200)); },
       "Can't merge parameter ranges yet!", resting},
      {[](const Scene& s) { s.p.removeParameterRange(s.a, s.box->opacity(), R(100, 50)); },
       mismatch, resting},
      {[](const Scene& s) {
         s.p.removeParameterRange(s.a, parameterOf(*s.box, "scale0"), R(100, 100));
       },
       "", resting},
      {[](const Scene& s) { s.p.removeParameterRange(s.b, s.box->opacity(), R(300, 100)); },
       "",
       {100, 200}},
      {[](const Scene& s) { s.p.parserAddAction(s.p.actionBin(), s.loose); },
       "adding action who's keyframes are invalid", resting},
      // A file may keep the resting key frame beside the pairs.
      {[](const Scene& s) {
         s.putLooseIn();
         s.box->opacity()->addKeyFrame(0, 1.0);
         s.p.parserAddAction(s.p.audioActionBin(), s.loose);
         EXPECT_EQ(s.p.audioActionBin(), s.p.actionBinForAction(s.loose));
       },
       "",
       {100, 200, 300, 400, 500, 600}},
      {[&other](const Scene& s) {
         s.putLooseIn();
         s.p.parserAddAction(other->actionBin(), s.loose);
         EXPECT_FALSE(s.p.actionBinForAction(s.loose));
       },
       "",
       {100, 200, 300, 400, 500, 600}},
      {[&other](const Scene& s) { s.p.addAction(other->actionBin(), s.loose); },
       "Invalid actionBin!", resting},
      // What an action animates is of this project, and a range animates
      // its action's media with one of that media's parameters.
      {[&other](const Scene& s) {
         s.p.addAction(s.p.actionBin(), actionOn(boxOf(other), 500, 600));
       },
       "the action's media belongs to another project", resting},
      {[](const Scene& s) {
         const auto mixed = actionOn(s.box, 500, 600);
         mixed->addParameterRange(*rangeOn(boxOf(nullptr), 500, 600, "scale0"));
         s.p.addAction(s.p.actionBin(), mixed);
       },
       "a parameter range animates another media than its action's", resting},
      {[&other](const Scene& s) {
         s.p.addParameterRange(s.a, rangeOn(boxOf(other), 100, 200, "scale0"));
       },
       "a parameter range animates another media than its action's", resting},
      {[](const Scene& s) {
         const auto stranger = boxOf(nullptr);
         s.p.addParameterRange(
             s.a, boost::make_shared<ParameterRange>(
                      s.box, parameterOf(*stranger, "scale0"),
                      boost::make_shared<KeyFrame<double>>(100, 0.25),
                      boost::make_shared<KeyFrame<double>>(200, 0.75), OrigToModified()));
       },
       "a parameter range's parameter isn't one of its media's", resting},
      {[](const Scene& s) { s.p.moveParameterKeyFrame(s.box, s.box->opacity(), 200, 350); }, past,
       resting},
  };
  int row = 0;
  for (const Case& c : cases) {
    SCOPED_TRACE(row++);
    const auto box = addBox(2000);
    const Scene scene{*project, box, added(box, 100, 200), added(box, 300, 400),
                      actionOn(box, 500, 600)};
    EXPECT_EQ(c.message, failure([&] { c.run(scene); }));
    EXPECT_EQ(c.times, timesOf(*box));
  }
}

}  // namespace
