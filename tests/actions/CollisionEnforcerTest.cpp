#include "actions/ActionBin.h"
#include "actions/CollisionEnforcer.h"
#include "core/EditJournal.h"

#include "actions/ActionTestSupport.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

using namespace actiontest;
using namespace KelMediaLib;
using namespace OrvMediaLib;
typedef Range<long long> R;

// Opacity animated over (100, 100), scale0 over (300, 100), both in one bin;
// each case moves one key frame and may first add an action of no length.
TEST(CollisionEnforcerTest, AKeyFrameMoveThatMakesAnActionCollideThrowsFromItsNotification) {
  struct Case {
    const char *name, *parameter;
    long long from, to;
    bool zeroLengthNeighbour, collides;
  } const cases[] = {
      {"end meets the right neighbour's start", "opacity", 200, 300, false, true},
      {"start meets the left neighbour's end", "scale0", 300, 200, false, false},
      {"overlap", "opacity", 200, 350, false, true},
      {"overlap from the right", "scale0", 300, 150, false, true},
      {"apart", "opacity", 200, 250, false, false},
      {"any change beside an action of no length", "opacity", 200, 210, true, true},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    Model model;
    const auto media = model.media();
    const auto bin = ActionBin::create();
    bin->addAction(media, makeAction(media, "opacity", 100, 200));
    bin->addAction(media, makeAction(media, "scale0", 300, 400));
    if (c.zeroLengthNeighbour) {
      bin->addAction(media, boost::make_shared<CenterAction>(media, Range<long long>(600, 0)));
    }
    const auto parameter = parameterOf(*media, c.parameter);
    EXPECT_EQ(c.collides ? "CollisionEnforcer: collision" : "",
              failure([&] { parameter->moveKeyFrame(c.from, c.to); }));
    EXPECT_TRUE(parameter->hasKeyFrameAt(c.to));
    EXPECT_FALSE(parameter->hasKeyFrameAt(c.from));
  }
}

TEST(CollisionEnforcerTest, WatchesUntilTheActionOrItsMediaIsDropped) {
  Model model;
  const auto media = model.media();
  const auto other = model.media();
  const auto first = boost::make_shared<CenterAction>(media, Range<long long>(0, 10));
  const auto second = boost::make_shared<CenterAction>(media, Range<long long>(5, 10));
  std::unique_ptr<CollisionEnforcer> enforcer(
      CollisionEnforcer::create([&](const Media*, const Action& action) {
        CollisionEnforcer::Surroundings around;
        around.held = true;
        around.after = &action == first.get() ? second.get() : nullptr;
        return around;
      }));
  const auto touch = [&] { return failure([&] { first->setTimeRange(Range<long long>(0, 10)); }); };

  enforcer->addAction(media, first);
  EXPECT_EQ("CollisionEnforcer: collision", touch());
  enforcer->removeMedia(other);
  enforcer->removeAction(first);
  EXPECT_EQ("", touch());
  EXPECT_EQ("removing non existant action.", failure([&] { enforcer->removeAction(first); }));

  enforcer->addAction(media, first);
  enforcer->addAction(other, second);
  enforcer->removeMedia(media);
  EXPECT_EQ(1u, enforcer->numActions());
  EXPECT_EQ("", touch());

  std::unique_ptr<CollisionEnforcer> unbound(
      CollisionEnforcer::create(CollisionEnforcer::SurroundingsFunction()));
  unbound->addAction(media, first);
  EXPECT_EQ("call to empty boost::function", touch());
}

// Actions without ranges move whole through `setTimeRange`: the enforcer
// keeps them in order and apart, and keeps knowing which have no length
// when a journal gives a length back without telling anyone.
TEST(CollisionEnforcerTest, ActionsMovedWholeStayInOrderAndApart) {
  struct Case {
    const char* name;
    R to;  // the new time range of the action at (100, 50)
    bool collides;
  } const cases[] = {
      {"jump over the right neighbour", R(400, 10), true},
      {"jump back over the left neighbour", R(-50, 10), true},
      {"a point inside the right neighbour", R(250, 0), true},
      {"a point in the gap", R(50, 0), false},
      {"stretch into the gap", R(20, 150), false},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    Model model;
    const auto media = model.media();
    const auto bin = ActionBin::create();
    const auto left = boost::make_shared<CenterAction>(media, R(0, 10));
    const auto moved = boost::make_shared<CenterAction>(media, R(100, 50));
    const auto right = boost::make_shared<CenterAction>(media, R(200, 100));
    for (const auto& action : {left, moved, right}) {
      bin->addAction(media, action);
    }
    EXPECT_EQ(c.collides ? "CollisionEnforcer: collision" : "",
              failure([&] { moved->setTimeRange(c.to); }));
  }

  Model model;
  const auto media = model.media();
  const auto bin = ActionBin::create();
  const auto point = boost::make_shared<CenterAction>(media, R(0, 10));
  const auto other = boost::make_shared<CenterAction>(media, R(100, 50));
  bin->addAction(media, point);
  bin->addAction(media, other);
  EditJournal journal;
  {
    const EditJournal::Scope open(&journal);
    point->setTimeRange(R(0, 0));
  }
  journal.seal();
  const auto nudge = [&] { return failure([&] { other->setTimeRange(R(100, 40)); }); };
  EXPECT_EQ("CollisionEnforcer: collision", nudge());
  journal.restoreBefore();
  EXPECT_EQ("", nudge());
  journal.restoreAfter();
  EXPECT_EQ("CollisionEnforcer: collision", nudge());
}

}  // namespace
