#include "actions/CenterAction.h"
#include "actions/EdgeAction.h"
#include "actions/OrvException.h"
#include "media/effects/GenericEffect.h"

#include "actions/ActionTestSupport.h"

#include <gtest/gtest.h>

#include <sstream>

namespace {

using namespace actiontest;
using KelMediaLib::Range;
using OrvMediaLib::CenterAction;
using OrvMediaLib::EdgeAction;
using OrvMediaLib::OrvException;

#define EXPECT_ORV_THROW(statement, text)                                       \
  try {                                                                         \
    statement;                                                                  \
    ADD_FAILURE() << "no exception";                                            \
  } catch (const OrvException& e) {                                             \
    EXPECT_STREQ(text, e.what());                                               \
  }

TEST(ActionTest, TimeRangeComesFromTheFirstRangeAndOutlivesIt) {
  Model model;
  const auto media = model.media();
  CenterAction action(media, Range<long long>(5, 10));
  CountingObserver observer;
  action.attach(&observer);
  EXPECT_EQ(Range<long long>(5, 10), action.timeRange());

  action.addParameterRange(makeRange(media, "opacity", 100, 150));
  EXPECT_EQ(Range<long long>(100, 50), action.timeRange());
  EXPECT_TRUE(action.hasParameterRangeForParameterAndTimeRange(parameterOf(*media, "opacity"),
                                                               Range<long long>(100, 50)));
  EXPECT_FALSE(action.hasParameterRangeForParameterAndTimeRange(parameterOf(*media, "opacity"),
                                                                Range<long long>(100, 51)));
  EXPECT_ORV_THROW(action.addParameterRange(makeRange(media, "scale0", 100, 160, false)),
                   "trying to add param range that doesn't match the action");
  EXPECT_EQ(1, action.numParameterRanges());

  action.setTimeRange(Range<long long>(1, 2));
  EXPECT_EQ(Range<long long>(100, 50), action.timeRange());
  EXPECT_EQ(1, observer.count);

  action.removeParameterRange(makeRange(media, "scale0", 100, 150, false));
  EXPECT_EQ(1, action.numParameterRanges());
  action.removeParameterRange(*action.parameterRanges()->front());
  EXPECT_EQ(0, action.numParameterRanges());
  EXPECT_EQ(Range<long long>(100, 50), action.timeRange());
  EXPECT_EQ(1, observer.count);
  action.detach(&observer);
}

TEST(ActionTest, OnlyCenterActionsPassRangeChangesOnAndEdgeRangesMustTouchAnEdge) {
  Model model;
  const auto media = model.media(1000);
  const auto center = makeAction(media, "opacity", 400, 500);
  const auto edge = boost::make_shared<EdgeAction>(media);
  edge->addParameterRange(makeRange(media, "scale0", 0, 300));
  const auto rightEdge = boost::make_shared<EdgeAction>(media);
  rightEdge->addParameterRange(makeRange(media, "scale1", 700, 1000));
  EXPECT_ORV_THROW(boost::make_shared<EdgeAction>(media)->addParameterRange(
                       makeRange(media, "scale2", 100, 200, false)),
                   "trying to add an edge action not at the edge");

  CountingObserver centerObserver, edgeObserver;
  center->attach(&centerObserver);
  edge->attach(&edgeObserver);
  parameterOf(*media, "opacity")->moveKeyFrame(500, 520);
  parameterOf(*media, "scale0")->moveKeyFrame(300, 320);
  EXPECT_EQ(1, centerObserver.count);
  EXPECT_EQ(0, edgeObserver.count);
  EXPECT_EQ(Range<long long>(0, 320), edge->timeRange());
  center->detach(&centerObserver);
  edge->detach(&edgeObserver);
}

TEST(ActionTest, ClonesOntoAClonedMediaFindParametersOnTheMediaOrItsEffects) {
  Model model;
  const auto media = model.media();
  media->insertEffect(KelMediaLib::GenericEffect::create("Blur", model.lock), -1);
  const boost::shared_ptr<const KelMediaLib::Parametric> blur = media->effectAt(0);
  const auto onMedia = makeAction(media, "opacity", 100, 200);
  const auto onEffect = makeAction(blur, "radius", 300, 400);
  const boost::shared_ptr<KelMediaLib::Media> clone = media->cloneMedia();

  for (const auto& source : {boost::shared_ptr<CenterAction>(onMedia), onEffect}) {
    const auto copy = source->createCloneAction(media.get(), clone);
    ASSERT_EQ(source->numParameterRanges(), copy->numParameterRanges());
    const auto range = copy->parameterRanges()->front();
    const std::string name = range->parameter()->name();
    const auto expected = name == "opacity" ? parameterOf(*clone, name)
                                            : parameterOf(*clone->effectAt(0), name);
    EXPECT_EQ(expected, range->parameter());
    EXPECT_EQ(expected->keyFrame(range->leftTime()), range->leftKeyframe());
    EXPECT_EQ(source->timeRange(), copy->timeRange());
    EXPECT_NE(expected, source->parameterRanges()->front()->parameter());
  }

  // The source's ranges outlive the clones and still reach only their action.
  CountingObserver observer;
  onMedia->attach(&observer);
  parameterOf(*media, "opacity")->moveKeyFrame(200, 210);
  EXPECT_EQ(1, observer.count);
  onMedia->detach(&observer);

  EXPECT_ORV_THROW(onEffect->createCloneAction(media.get(), model.media()),
                   "unable to find cloned actions parameter");
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

TEST(ActionTest, WritesItsTimeRangeAndItsRanges) {
  Model model;
  const auto media = model.media();
  const auto action = makeAction(media, "opacity", 100, 150);
  std::ostringstream out;
  KelMediaLib::XMLable::Options options(out);
  action->toXML(options, 0, "");
  const std::string text = out.str();
  EXPECT_EQ(0u, text.find("<CenterAction timeRange=\"(100,50)\">\n  <ParameterRanges>\n"
                          "    <ParameterRange id="));
  EXPECT_NE(std::string::npos, text.find("parameter=\"opacity\" left=\"100\" right=\"150\"/>\n"
                                         "  </ParameterRanges>\n</CenterAction>\n"));
}

}  // namespace
