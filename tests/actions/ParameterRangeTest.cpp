#include "actions/OrigToModified.h"
#include "actions/ParameterRange.h"
#include "core/ThreadSafe.h"
#include "media/media/TextBox.h"
#include "values/InterpolatingParam.h"
#include "values/ParameterTestSupport.h"

#include <gtest/gtest.h>

#include <boost/make_shared.hpp>

#include <functional>
#include <string>
#include <vector>

using namespace OrvMediaLib;
using KelMediaLib::KeyFrame;
using parameterTests::CountingObserver;
using parameterTests::keyFrameText;

namespace {

class ParameterRangeTest : public testing::Test {
 protected:
  ParameterRangeTest()
      : project(boost::make_shared<KelMediaLib::ThreadSafe>()),
        box(KelMediaLib::TextBox::create("t", 1000, 1.0f, 1.0f, project)),
        opacity(box->opacity()) {}

  boost::shared_ptr<ParameterRange> range(long long left, double leftValue, long long right,
                                          double rightValue) {
    return boost::make_shared<ParameterRange>(
        box, opacity, boost::make_shared<KeyFrame<double>>(left, leftValue),
        boost::make_shared<KeyFrame<double>>(right, rightValue), OrigToModified());
  }

  // What the project does when it adds the range's action.
  static void add(const ParameterRange& range) {
    const auto interpolater = range.interpolater();
    ParameterRange::addRangesKeyframes(range.parameter(), range.leftKeyframe(),
                                       range.rightKeyframe(),
                                       interpolater ? interpolater->parameter() : nullptr,
                                       interpolater ? interpolater->keyframe() : nullptr);
  }

  boost::shared_ptr<KelMediaLib::ThreadSafe> project;
  boost::shared_ptr<KelMediaLib::TextBox> box;
  boost::shared_ptr<KelMediaLib::InterpolatingParam<double>> opacity;
};

}  // namespace

TEST_F(ParameterRangeTest, ARestingKeyFrameGivesWayToTheFirstRange) {
  const struct {
    long long left;
    bool withInterpolater;
    std::string keyFrames;
    std::vector<long long> companionTimes;
  } rows[] = {
      {100, true, "100=5 200=9 ", {-1, 100}},
      {0, false, "0=5 200=9 ", {0}},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.left);
    opacity = KelMediaLib::InterpolatingParam<double>::create(project, "opacity", 5.0);
    const auto first = range(row.left, 5.0, 200, 9.0);
    if (row.withInterpolater) {
      first->setInterpolater(boost::make_shared<InterpolaterRange>(
          opacity->interpolaterParameter(),
          boost::make_shared<InterpolaterRange::InterpolaterKeyFrame>(
              row.left, KelMediaLib::LeftInterpolater<double>::getInstance())));
    }
    add(*first);
    EXPECT_EQ(row.keyFrames, keyFrameText(*opacity));
    EXPECT_EQ(first->leftKeyframe(), opacity->keyFrame(row.left));
    EXPECT_EQ(first->rightKeyframe(), opacity->keyFrame(200));
    EXPECT_EQ(row.companionTimes, opacity->interpolaterParameter()->keyFrameTimes());
  }
}

TEST_F(ParameterRangeTest, ARangeThatChangesNothingEndsOnTheFollowingValue) {
  opacity->setKeyFrameValue(0, 5.0);
  opacity->addKeyFrame(300, 7.0);
  const auto flat = range(100, 5.0, 200, 5.0);
  add(*flat);
  EXPECT_EQ("0=5 100=5 200=7 300=7 ", keyFrameText(*opacity));
}

TEST_F(ParameterRangeTest, ValuesHoldBetweenRangesWhileTheParameterIsInBalance) {
  const struct {
    const char* extra;  // a key frame that upsets the balance, or restores it
    long long extraTime;
    double at200, at300;
  } rows[] = {
      {"none", -1, 6.0, 6.0},
      {"odd count without 0", 500, 8.0, 8.0},
      {"odd count with 0", 0, 6.0, 6.0},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.extra);
    opacity = KelMediaLib::InterpolatingParam<double>::create(project, "opacity", 1.0);
    const auto first = range(100, 2.0, 200, 3.0);
    const auto second = range(300, 3.0, 400, 4.0);
    add(*first);
    add(*second);
    if (row.extraTime >= 0) {
      opacity->addKeyFrame(row.extraTime, 9.0);
    }
    CountingObserver firstSeen, secondSeen;
    first->attach(&firstSeen);
    second->attach(&secondSeen);

    opacity->setKeyFrameValue(200, 6.0);
    EXPECT_EQ(6.0, opacity->keyFrame(300)->value());

    firstSeen.count = secondSeen.count = 0;
    opacity->setKeyFrameValue(300, 8.0);
    EXPECT_EQ(row.at200, opacity->keyFrame(200)->value());
    EXPECT_EQ(row.at300, opacity->keyFrame(300)->value());
    EXPECT_EQ(0, firstSeen.count);
    EXPECT_EQ(1, secondSeen.count);
  }
}

TEST_F(ParameterRangeTest, MovingTheRangeMovesItsInterpolaterAndACopyStartsWithAnEmptyStretch) {
  const auto moving = range(100, 2.0, 200, 3.0);
  const auto interpolaterKeyFrame = boost::make_shared<InterpolaterRange::InterpolaterKeyFrame>(
      100, KelMediaLib::LeftInterpolater<double>::getInstance());
  moving->setInterpolater(boost::make_shared<InterpolaterRange>(opacity->interpolaterParameter(),
                                                                interpolaterKeyFrame));
  add(*moving);
  const ParameterRange copy(*moving);
  CountingObserver originalSeen, copySeen;
  moving->attach(&originalSeen);
  copy.attach(&copySeen);

  opacity->setKeyFrameValue(200, 3.0);
  EXPECT_EQ(0, originalSeen.count);
  EXPECT_EQ(1, copySeen.count);

  opacity->moveKeyFrame(100, 150);
  EXPECT_EQ(1, originalSeen.count);
  EXPECT_EQ((std::vector<long long>{-1, 150}), opacity->interpolaterParameter()->keyFrameTimes());
  EXPECT_EQ(150, interpolaterKeyFrame->time());
  EXPECT_EQ(KelMediaLib::Range<long long>(150, 50), copy.timeRange());
}

TEST_F(ParameterRangeTest, TimeAxesAndXMLForm) {
  box->setScalar(2.0);
  const auto empty = range(100, 1.0, 100, 1.0);
  EXPECT_EQ(0, empty->duration());
  EXPECT_EQ(KelMediaLib::Range<long long>(100, 0), empty->timeRange());
  EXPECT_EQ(KelMediaLib::Range<long long>(200, 0), empty->parametricTimeRange());
  EXPECT_EQ(
      "<ParameterRange id=\"1\" parametric=\"2\" parameter=\"opacity\" left=\"100\" "
      "right=\"100\"/>\n",
      parameterTests::xmlOf(*empty));
}

// A change reaches the ranges whose key frames it concerns; a range that a
// value handed on in place reaches hears of it as well.
TEST_F(ParameterRangeTest, AChangeReachesTheRangesItConcernsAndTheValuesTheyHandOn) {
  const struct {
    const char* edit;
    std::function<void(KelMediaLib::Parameter<double>&)> run;
    int firstTold;
    int secondTold;
    std::string keyFrames;
  } rows[] = {
      {"first's left value", [](auto& p) { p.setKeyFrameValue(100, 2.0); }, 1, 0,
       "100=2 200=9 400=9 500=4 "},
      {"first's right time", [](auto& p) { p.moveKeyFrame(200, 250); }, 1, 0,
       "100=5 250=9 400=9 500=4 "},
      {"second's right value", [](auto& p) { p.setKeyFrameValue(500, 1.0); }, 0, 1,
       "100=5 200=9 400=9 500=1 "},
      {"first's right value, handed on", [](auto& p) { p.setKeyFrameValue(200, 3.0); }, 1, 1,
       "100=5 200=3 400=3 500=4 "},
      {"second's left value, pulled back", [](auto& p) { p.setKeyFrameValue(400, 6.0); }, 0, 1,
       "100=5 200=9 400=9 500=4 "},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.edit);
    opacity = KelMediaLib::InterpolatingParam<double>::create(project, "opacity", 5.0);
    const auto first = range(100, 5.0, 200, 9.0);
    const auto second = range(400, 9.0, 500, 4.0);
    add(*first);
    add(*second);
    ASSERT_EQ("100=5 200=9 400=9 500=4 ", keyFrameText(*opacity));
    CountingObserver firstTold, secondTold;
    first->attach(&firstTold);
    second->attach(&secondTold);
    row.run(*opacity);
    EXPECT_EQ(row.firstTold, firstTold.count);
    EXPECT_EQ(row.secondTold, secondTold.count);
    EXPECT_EQ(row.keyFrames, keyFrameText(*opacity));
    first->detach(&firstTold);
    second->detach(&secondTold);
  }
}

// While a pair is half in, a range can't tell whose key frame stands before
// it; it takes the value once the parameter is whole again, even when that
// change is far from its key frames.
TEST_F(ParameterRangeTest, ARangeLeftOutOfStepWhileAPairIsHalfInCatchesUp) {
  const auto first = range(100, 5.0, 200, 9.0);
  const auto second = range(400, 9.0, 500, 4.0);
  add(*first);
  add(*second);
  opacity->addKeyFrame(300, 7.0);
  EXPECT_EQ("100=5 200=9 300=7 400=9 500=4 ", keyFrameText(*opacity));
  opacity->addKeyFrame(900, 1.0);
  EXPECT_EQ("100=5 200=9 300=7 400=7 500=4 900=1 ", keyFrameText(*opacity));
}
