#include "actions/ActionBin.h"
#include "actions/ActionBinSync.h"
#include "actions/OrvException.h"
#include "media/effects/GenericEffect.h"
#include "media/timeline/Timeline.h"
#include "media/timeline/Track.h"
#include "media/timeline/VisualMixer.h"

#include "actions/ActionTestSupport.h"

#include <gtest/gtest.h>

#include <sstream>
#include <vector>

namespace {

using namespace actiontest;
using KelMediaLib::Range;
using OrvMediaLib::Action;
using OrvMediaLib::ActionBin;
using OrvMediaLib::CenterAction;
using OrvMediaLib::OrvException;

typedef Range<long long> R;

boost::shared_ptr<const Action> actionAt(const Model& model, R range) {
  return boost::make_shared<CenterAction>(model.media(), range);
}

std::vector<long long> starts(const OrvMediaLib::ActionList& actions) {
  std::vector<long long> result;
  for (const auto& action : actions) {
    result.push_back(action->timeRange().start);
  }
  return result;
}

template <class F>
std::string failure(F f) {
  try {
    f();
  } catch (const OrvException& e) {
    return e.what();
  }
  return "";
}

TEST(ActionBinTest, RefusesActionsThatTouchAndKeepsEachListSortedByStart) {
  struct Case {
    R first, second;
    bool collides;
  };
  const Case cases[] = {
      {R(10, 5), R(15, 5), true},  {R(10, 5), R(16, 5), false}, {R(15, 5), R(10, 5), true},
      {R(10, 0), R(10, 0), true},  {R(10, 5), R(12, 1), true},  {R(30, 5), R(10, 5), false},
  };
  Model model;
  for (const Case& c : cases) {
    SCOPED_TRACE(::testing::Message() << c.first << " then " << c.second);
    const auto bin = ActionBin::create();
    const auto media = model.media();
    bin->addAction(media, actionAt(model, c.first));
    const std::string message = failure([&] { bin->addAction(media, actionAt(model, c.second)); });
    EXPECT_EQ(c.collides ? "unable to add action, it collides with another existing action" : "",
              message);
    EXPECT_EQ(c.collides ? 1u : 2u, bin->numActions());
    const std::vector<long long> sorted =
        c.collides ? std::vector<long long>{c.first.start}
                   : std::vector<long long>{std::min(c.first.start, c.second.start),
                                            std::max(c.first.start, c.second.start)};
    EXPECT_EQ(sorted, starts(*bin->mediasActions(media)));
  }
}

TEST(ActionBinTest, LookupsHoldBothEndsAndFindMediaByTheirEffects) {
  Model model;
  const auto bin = ActionBin::create();
  const auto media = model.media();
  const auto bare = model.media();
  media->insertEffect(KelMediaLib::GenericEffect::create("Blur", model.lock), -1);
  const auto action = actionAt(model, R(10, 5));
  bin->addAction(media, action);

  EXPECT_EQ(action, bin->actionForMediaContainingTime(media, 15));
  EXPECT_FALSE(bin->actionForMediaContainingTime(media, 16));
  EXPECT_EQ(R(10, 5), bin->actionRangeForMediaContainingTime(media, 10));
  EXPECT_EQ(R(0, 0), bin->actionRangeForMediaContainingTime(media, 9));
  EXPECT_EQ(1u, bin->parametricsActions(media->effectAt(0))->size());
  EXPECT_EQ(action, bin->actionForParametricContainingTime(media->effectAt(0), 12));
  EXPECT_FALSE(bin->actionForParametricContainingTime(media->effectAt(0), 20));
  EXPECT_FALSE(bin->parametricsActions(bare));
  EXPECT_TRUE(bin->mediasActions(bare)->empty());
  EXPECT_TRUE(bin->mediasActions(bare.get())->empty());
  EXPECT_EQ(1u, bin->mediasActions(media.get())->size());
  EXPECT_TRUE(bin->containsAction(action));
  EXPECT_FALSE(bin->containsAction(actionAt(model, R(10, 5))));
}

TEST(ActionBinTest, ObserversOfAMediaHearOfItsListChanging) {
  Model model;
  const auto bin = ActionBin::create();
  const auto media = model.media();
  const auto action = actionAt(model, R(10, 5));
  struct Probe : KelMediaLib::Observer {
    const ActionBin* bin;
    boost::shared_ptr<const KelMediaLib::Media> media;
    std::vector<std::pair<bool, std::size_t>> seen;
    void observerUpdate() override { seen.emplace_back(bin->hasMedia(media), bin->mediasActions(media)->size()); }
  } probe;
  probe.bin = bin.get();
  probe.media = media;
  CountingObserver stranger;
  bin->mediaAttach(&probe, media);
  bin->mediaDetach(&stranger);

  bin->addAction(media, action);
  bin->removeAction(action);
  EXPECT_FALSE(bin->hasMedia(media));
  bin->addAction(media, action);
  bin->removeMedia(media);
  const std::vector<std::pair<bool, std::size_t>> expected{{true, 1}, {true, 0}, {true, 1}, {false, 0}};
  EXPECT_EQ(expected, probe.seen);

  EXPECT_EQ("attempting to remove an action that isn't in the action bin",
            failure([&] { bin->removeAction(action); }));
  EXPECT_EQ("attempting to remove a media that isn't in the action bin",
            failure([&] { bin->removeMedia(media); }));
  bin->mediaDetach(&probe);
  bin->addAction(media, action);
  EXPECT_EQ(4u, probe.seen.size());
}

TEST(ActionBinTest, WritesEachMediasActionsAndDropsCloneHandlersWhenItGoes) {
  Model model;
  auto bin = ActionBin::create();
  const auto media = model.media();
  bin->addAction(media, actionAt(model, R(10, 5)));
  std::ostringstream out;
  KelMediaLib::XMLable::Options options(out);
  bin->toXML(options, 0, " name=\"main\"");
  EXPECT_EQ("<ActionBin name=\"main\">\n  <MediasActions media=\"" + std::to_string(media->xmlIdent()) +
                "\">\n    <CenterAction timeRange=\"(10,5)\">\n      <ParameterRanges>\n"
                "      </ParameterRanges>\n    </CenterAction>\n  </MediasActions>\n</ActionBin>\n",
            out.str());

  struct Handler : KelMediaLib::CloneDecorator<KelMediaLib::Media> {
    bool* deleted;
    explicit Handler(bool* flag) : deleted(flag) {}
    ~Handler() override { *deleted = true; }
    void execute(const KelMediaLib::Media*, boost::shared_ptr<const KelMediaLib::Media>) override {}
  };
  bool deleted = false;
  media->setCloneDecorator(new Handler(&deleted));
  bin.reset();
  EXPECT_TRUE(deleted);
  EXPECT_FALSE(media->hasCloneDecorator());
}

TEST(ActionBinTest, SyncDropsTheActionsOfMediaThatLeftTheTimeline) {
  Model model;
  const auto timeline = KelMediaLib::Timeline::create();
  timeline->setVisualMixer(KelMediaLib::VisualMixer::create(640, 480, model.lock));
  const boost::shared_ptr<KelMediaLib::Track> track = timeline->visualMixer()->makeTrack(model.lock);
  timeline->visualMixer()->insertTrack(track, -1);
  const auto leaving = model.media();
  const auto arriving = model.media();
  track->insertMedia(leaving);
  const auto first = ActionBin::create();
  const auto second = ActionBin::create();
  first->addAction(leaving, actionAt(model, R(0, 5)));
  second->addAction(leaving, actionAt(model, R(0, 5)));
  first->addAction(arriving, actionAt(model, R(0, 5)));
  OrvMediaLib::ActionBinSync sync(timeline, first, second);

  track->eraseMedia(leaving.get());
  track->insertMedia(arriving);
  sync.observerUpdate();
  EXPECT_FALSE(first->hasMedia(leaving));
  EXPECT_FALSE(second->hasMedia(leaving));
  EXPECT_TRUE(first->hasMedia(arriving));
  EXPECT_EQ(1u, first->numActions() + second->numActions());
}

}  // namespace
