#include "actions/ActionBin.h"
#include "actions/ActionBinSync.h"
#include "core/EditJournal.h"
#include "media/effects/GenericEffect.h"
#include "media/timeline/Timeline.h"
#include "media/timeline/Track.h"
#include "media/timeline/VisualMixer.h"

#include "actions/ActionTestSupport.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <random>
#include <sstream>
#include <vector>

namespace {

using namespace actiontest;
using namespace KelMediaLib;
using namespace OrvMediaLib;
typedef Range<long long> R;

boost::shared_ptr<const Action> actionAt(const Model& model, R range) {
  return boost::make_shared<CenterAction>(model.media(), range);
}

// Each case adds two actions to one media; a single start left means a
// refusal. A point inside another action shares its time too.
TEST(ActionBinTest, RefusesActionsThatShareATimeAndKeepsEachListSortedByStart) {
  struct Case {
    R first, second;
    std::vector<long long> starts;
  } const cases[] = {
      {R(10, 5), R(15, 5), {10}},  {R(10, 5), R(16, 5), {10, 16}}, {R(15, 5), R(10, 5), {15}},
      {R(10, 0), R(10, 0), {10}},  {R(10, 5), R(12, 1), {10}},     {R(30, 5), R(10, 5), {10, 30}},
      {R(10, 10), R(15, 0), {10}}, {R(15, 0), R(10, 10), {15}},    {R(10, 0), R(11, 0), {10, 11}},
  };
  Model model;
  for (const Case& c : cases) {
    SCOPED_TRACE(::testing::Message() << c.first << " then " << c.second);
    const auto bin = ActionBin::create();
    const auto media = model.media();
    bin->addAction(media, actionAt(model, c.first));
    EXPECT_EQ(c.starts.size() == 1
                  ? "unable to add action, it collides with another existing action"
                  : "",
              failure([&] { bin->addAction(media, actionAt(model, c.second)); }));
    std::vector<long long> starts;
    const auto held = bin->mediasActions(media);
    for (const auto& action : *held) {
      starts.push_back(action->timeRange().start);
    }
    EXPECT_EQ(c.starts, starts);
  }
}

TEST(ActionBinTest, LookupsHoldBothEndsAndObserversHearOfAMediasListChanging) {
  Model model;
  const auto bin = ActionBin::create();
  const auto media = model.media();
  media->insertEffect(GenericEffect::create("Blur", model.lock), -1);
  const auto action = actionAt(model, R(10, 5));
  struct Probe : Observer {
    std::function<void()> onUpdate;
    void observerUpdate() override { onUpdate(); }
  } probe;
  std::vector<std::pair<bool, std::size_t>> seen;
  probe.onUpdate = [&] {
    seen.emplace_back(bin->hasMedia(media), bin->mediasActions(media)->size());
  };
  bin->mediaAttach(&probe, media);
  bin->addAction(media, action);

  EXPECT_EQ(action, bin->actionForMediaContainingTime(media, 15));
  EXPECT_FALSE(bin->actionForMediaContainingTime(media, 16));
  EXPECT_EQ(R(0, 0), bin->actionRangeForMediaContainingTime(media, 9));
  EXPECT_EQ(action, bin->actionForParametricContainingTime(media->effectAt(0), 12));
  EXPECT_EQ(1u, bin->parametricsActions(media->effectAt(0))->size());
  EXPECT_FALSE(bin->parametricsActions(model.media()));
  EXPECT_TRUE(bin->mediasActions(model.media().get())->empty());

  bin->removeAction(action);
  EXPECT_FALSE(bin->hasMedia(media));
  bin->addAction(media, action);
  bin->removeMedia(media);
  const std::vector<std::pair<bool, std::size_t>> expected{
      {true, 1}, {true, 0}, {true, 1}, {false, 0}};
  EXPECT_EQ(expected, seen);
  EXPECT_EQ("attempting to remove an action that isn't in the action bin",
            failure([&] { bin->removeAction(action); }));
  EXPECT_EQ("attempting to remove a media that isn't in the action bin",
            failure([&] { bin->removeMedia(media); }));
  bin->mediaDetach(&probe);
}

TEST(ActionBinTest, WritesEachMediasActionsAndDropsCloneHandlersWhenItGoes) {
  Model model;
  auto bin = ActionBin::create();
  const auto media = model.media();
  const auto action = actionAt(model, R(10, 5));
  bin->addAction(media, action);
  std::ostringstream out;
  XMLable::Options options(out);
  bin->toXML(options, 0, " name=\"main\"");
  // Idents are numbered per document, in the order of first mention.
  EXPECT_EQ(
      "<ActionBin id=\"1\" name=\"main\">\n  <MediasActions media=\"2\">\n"
      "    <CenterAction id=\"3\" timeRange=\"(10,5)\">\n      <ParameterRanges>\n"
      "      </ParameterRanges>\n    </CenterAction>\n  </MediasActions>\n</ActionBin>\n",
      out.str());

  struct Handler : CloneDecorator<Media> {
    bool* deleted;
    explicit Handler(bool* flag) : deleted(flag) {}
    ~Handler() override { *deleted = true; }
    void execute(const Media*, boost::shared_ptr<const Media>) override {}
  };
  bool deleted = false;
  media->setCloneDecorator(new Handler(&deleted));
  bin.reset();
  EXPECT_TRUE(deleted);
  EXPECT_FALSE(media->hasCloneDecorator());
}

TEST(ActionBinTest, SyncDropsTheActionsOfMediaThatLeftTheTimeline) {
  Model model;
  const auto timeline = Timeline::create();
  timeline->setVisualMixer(VisualMixer::create(640, 480, model.lock));
  const boost::shared_ptr<Track> track = timeline->visualMixer()->makeTrack(model.lock);
  timeline->visualMixer()->insertTrack(track, -1);
  const auto leaving = model.media();
  track->insertMedia(leaving);
  const auto first = ActionBin::create();
  const auto second = ActionBin::create();
  first->addAction(leaving, actionAt(model, R(0, 5)));
  second->addAction(leaving, actionAt(model, R(0, 5)));
  ActionBinSync sync(timeline, first, second);

  track->eraseMedia(leaving.get());
  sync.observerUpdate();
  EXPECT_FALSE(first->hasMedia(leaving) || second->hasMedia(leaving));
}

}  // namespace

namespace {

// The bin notes only the actions an edit adds or removes; undo and redo must
// still give back each list exactly, and the watches with it.
TEST(ActionBinTest, TheJournalGivesBackEveryListAndItsWatches) {
  Model model;
  const auto media = model.media();
  const auto other = model.media();
  std::vector<boost::shared_ptr<const Action>> held;
  for (long long start = 0; start < 50; start += 10) {
    held.push_back(actionAt(model, R(start, 5)));
  }
  const auto elsewhere = actionAt(model, R(0, 5));
  const struct {
    const char* edit;
    std::function<void(ActionBin&)> run;
  } rows[] = {
      {"add", [&](ActionBin& bin) { bin.addAction(media, actionAt(model, R(56, 2))); }},
      {"remove", [&](ActionBin& bin) { bin.removeAction(held[2]); }},
      {"remove two, add one between",
       [&](ActionBin& bin) {
         bin.removeAction(held[0]);
         bin.removeAction(held[3]);
         bin.addAction(media, actionAt(model, R(32, 3)));
       }},
      {"remove and add back",
       [&](ActionBin& bin) {
         bin.removeAction(held[1]);
         bin.addAction(media, held[1]);
       }},
      {"another media", [&](ActionBin& bin) { bin.removeAction(elsewhere); }},
      {"a whole media", [&](ActionBin& bin) { bin.removeMedia(media); }},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.edit);
    const auto bin = ActionBin::create();
    for (const auto& action : held) {
      bin->addAction(media, action);
    }
    bin->addAction(other, elsewhere);
    const auto list = [&](const boost::shared_ptr<const Media>& of) {
      return *bin->mediasActions(of);
    };
    const ActionList before = list(media);
    EditJournal journal;
    {
      const EditJournal::Scope open(&journal);
      row.run(*bin);
    }
    journal.seal();
    const ActionList after = list(media);
    const unsigned int count = bin->numActions();
    journal.restoreBefore();
    EXPECT_EQ(before, list(media));
    EXPECT_EQ(ActionList{elsewhere}, list(other));
    EXPECT_EQ(6u, bin->numActions());
    for (const auto& action : held) {
      EXPECT_TRUE(bin->containsAction(action));
    }
    // Watched again: touching a neighbour collides.
    EXPECT_EQ("CollisionEnforcer: collision", failure([&] {
                boost::const_pointer_cast<Action>(held[1])->setTimeRange(R(12, 10));
              }));
    boost::const_pointer_cast<Action>(held[1])->setTimeRange(R(10, 5));
    journal.restoreAfter();
    EXPECT_EQ(after, list(media));
    EXPECT_EQ(count, bin->numActions());
  }
}

// A media with many actions: its list spans many blocks, and lookups by time,
// edits and the journal must agree with a plain sorted list.
TEST(ActionBinTest, ManyActionsOfOneMediaAreFoundByTimeAndJournaledExactly) {
  Model model;
  const auto media = model.media();
  const auto bin = ActionBin::create();
  std::vector<boost::shared_ptr<const Action>> held;
  for (long long i = 0; i < 1000; ++i) {
    held.push_back(actionAt(model, R(i * 10, 5)));
  }
  std::mt19937 random(7);
  std::vector<boost::shared_ptr<const Action>> order = held;
  std::shuffle(order.begin(), order.end(), random);
  for (const auto& action : order) {
    bin->addAction(media, action);
  }
  EXPECT_EQ(ActionList(held.begin(), held.end()), *bin->mediasActions(media));
  // The last action touches its left neighbour once it starts at its end.
  boost::const_pointer_cast<Action>(held[999])->setTimeRange(R(9985, 5));

  const struct {
    long long time;
    int holder;  // -1: none
  } lookups[] = {{0, 0},      {5, 0},      {6, -1},     {4326, -1}, {4321, 432}, {4320, 432},
                 {4325, 432}, {9985, 998}, {9990, 999}, {9991, -1}, {-1, -1}};
  for (const auto& lookup : lookups) {
    const auto found = bin->actionForMediaContainingTime(media, lookup.time);
    EXPECT_EQ(lookup.holder < 0 ? nullptr : held[lookup.holder].get(), found.get()) << lookup.time;
  }
  const struct {
    R range;
    std::vector<int> meeting;
  } queries[] = {{R(6, 3), {}},         {R(5, 5), {0, 1}},
                 {R(2000, 0), {200}},   {R(1265, 30), {126, 127, 128, 129}},
                 {R(9990, 100), {999}}, {R(-10, 5), {}}};
  for (const auto& query : queries) {
    std::vector<int> meeting;
    for (const auto& action : bin->actionsMeeting(media.get(), query.range)) {
      meeting.push_back(
          static_cast<int>(std::find(held.begin(), held.end(), action) - held.begin()));
    }
    EXPECT_EQ(query.meeting, meeting) << query.range;
  }

  // Random removals and additions under one journal, over and over.
  for (int round = 0; round < 20; ++round) {
    SCOPED_TRACE(round);
    const ActionList before = *bin->mediasActions(media);
    EditJournal journal;
    {
      const EditJournal::Scope open(&journal);
      for (int step = 0; step < 30; ++step) {
        const auto& action = held[random() % 999];
        if (bin->containsAction(action)) {
          bin->removeAction(action);
        } else {
          bin->addAction(media, action);
        }
      }
    }
    journal.seal();
    const ActionList after = *bin->mediasActions(media);
    journal.restoreBefore();
    EXPECT_EQ(before, *bin->mediasActions(media));
    journal.restoreAfter();
    ASSERT_EQ(after, *bin->mediasActions(media));
    ASSERT_TRUE(std::is_sorted(after.begin(), after.end(), [](const auto& a, const auto& b) {
      return a->timeRange().start < b->timeRange().start;
    }));
  }
}

}  // namespace
