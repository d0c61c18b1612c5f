#include "actions/CenterAction.h"
#include "actions/EdgeAction.h"
#include "media/effects/GenericEffect.h"

#include "actions/ActionTestSupport.h"

#include <gtest/gtest.h>

namespace {

using namespace actiontest;
using namespace KelMediaLib;
using namespace OrvMediaLib;

TEST(ActionTest, TimeRangeComesFromTheFirstRangeAndOutlivesIt) {
  Model model;
  const auto media = model.media();
  CenterAction action(media, Range<long long>(5, 10));
  CountingObserver observer;
  action.attach(&observer);
  EXPECT_EQ(Range<long long>(5, 10), action.timeRange());

  action.addParameterRange(makeRange(media, "opacity", 100, 150));
  EXPECT_EQ(Range<long long>(100, 50), action.timeRange());
  EXPECT_EQ("trying to add param range that doesn't match the action", failure([&] {
              action.addParameterRange(makeRange(media, "scale0", 100, 160, false));
            }));
  EXPECT_EQ(1, action.numParameterRanges());

  action.setTimeRange(Range<long long>(1, 2));
  EXPECT_EQ(Range<long long>(100, 50), action.timeRange());
  EXPECT_EQ(1, observer.count);

  action.removeParameterRange(makeRange(media, "scale0", 100, 150, false));
  EXPECT_EQ(1, action.numParameterRanges());
  action.removeParameterRange(*action.parameterRanges()->front());
  EXPECT_EQ(0, action.numParameterRanges());
  EXPECT_EQ(Range<long long>(100, 50), action.timeRange());
}

TEST(ActionTest, EdgeActionsPassNoRangeChangeOnAndTheirRangesMustTouchAnEdge) {
  Model model;
  const auto media = model.media(1000);
  const auto edge = boost::make_shared<EdgeAction>(media);
  edge->addParameterRange(makeRange(media, "scale0", 0, 300));
  EdgeAction(media).addParameterRange(makeRange(media, "scale1", 700, 1000));
  EXPECT_EQ("trying to add an edge action not at the edge", failure([&] {
              EdgeAction(media).addParameterRange(makeRange(media, "scale2", 100, 200));
            }));

  CountingObserver observer;
  edge->attach(&observer);
  parameterOf(*media, "scale0")->moveKeyFrame(300, 320);
  EXPECT_EQ(0, observer.count);
  EXPECT_EQ(Range<long long>(0, 320), edge->timeRange());
}

TEST(ActionTest, ClonesOntoAClonedMediaFindParametersOnTheMediaOrItsEffects) {
  Model model;
  const auto media = model.media();
  media->insertEffect(GenericEffect::create("Blur", model.lock), -1);
  const auto onMedia = makeAction(media, "opacity", 100, 200);
  const auto onEffect = makeAction(media->effectAt(0), "radius", 300, 400);
  const boost::shared_ptr<Media> clone = media->cloneMedia();

  for (const auto& source : {onMedia, onEffect}) {
    const auto copy = source->createCloneAction(media.get(), clone);
    ASSERT_EQ(source->numParameterRanges(), copy->numParameterRanges());
    const auto range = copy->parameterRanges()->front();
    const std::string name = range->parameter()->name();
    const auto expected =
        name == "opacity" ? parameterOf(*clone, name) : parameterOf(*clone->effectAt(0), name);
    EXPECT_EQ(expected, range->parameter());
    EXPECT_EQ(expected->keyFrame(range->leftTime()), range->leftKeyframe());
    EXPECT_EQ(source->timeRange(), copy->timeRange());
  }

  // The source's ranges outlive the clones and still reach only their action.
  CountingObserver observer;
  onMedia->attach(&observer);
  parameterOf(*media, "opacity")->moveKeyFrame(200, 210);
  EXPECT_EQ(1, observer.count);

  EXPECT_EQ("unable to find cloned actions parameter",
            failure([&] { onEffect->createCloneAction(media.get(), model.media()); }));
}

TEST(ActionTest, EdgeActionCopiesShareOneMediaListenerUntilTheLastGoes) {
  Model model;
  const auto media = model.media();
  const std::size_t before = media->numObservers();
  for (const bool sourceFirst : {true, false}) {
    auto source = boost::make_shared<EdgeAction>(media);
    boost::shared_ptr<EdgeAction> copy(source->clone());
    EXPECT_EQ(before + 1, media->numObservers());
    (sourceFirst ? source : copy).reset();
    media->trimEnd(10);
    EXPECT_EQ(before + 1, media->numObservers());
    (sourceFirst ? copy : source).reset();
    EXPECT_EQ(before, media->numObservers());
  }
}

}  // namespace
