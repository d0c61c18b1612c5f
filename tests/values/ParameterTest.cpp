#include "values/Parameter.h"

#include "core/KelMediaLibException.h"
#include "values/KeyFrame.h"
#include "values/LeftParameter.h"
#include "values/ParameterTestSupport.h"

#include <gtest/gtest.h>

#include <boost/shared_ptr.hpp>

#include <cmath>
#include <functional>
#include <limits>
#include <string>
#include <utility>
#include <vector>

using KelMediaLib::KelMediaLibException;
using KelMediaLib::KeyFrame;
using KelMediaLib::LeftParameter;
using KelMediaLib::Parameter;
using KelMediaLib::ThreadSafe;
using parameterTests::CountingObserver;
using parameterTests::keyFrameText;
using parameterTests::kMaxTime;
using parameterTests::kMinTime;
using parameterTests::xmlOf;

namespace {

typedef boost::shared_ptr<KeyFrame<double>> Frame;

Frame frame(long long time, double value) {
  return Frame(new KeyFrame<double>(time, value));
}

class ParameterTest : public ::testing::Test {
 protected:
  boost::shared_ptr<ThreadSafe> project = parameterTests::newProject();
  boost::shared_ptr<Parameter<double>> opacity = Parameter<double>::create(project, "opacity", 1.0);
};

TEST_F(ParameterTest, ValueAtHoldsTheLeftKeyFrameAndTheEndValuesOutside) {
  opacity->moveKeyFrame(0, 10);
  opacity->setKeyFrameValue(10, 2.0);
  opacity->addKeyFrame(20, 4.0);
  opacity->addKeyFrame(30, 6.0);
  const double inf = std::numeric_limits<double>::infinity();
  const double nan = std::numeric_limits<double>::quiet_NaN();
  // time, value
  const std::pair<double, double> cases[] = {
      {-5, 2},  {0, 2},    {9.999, 2},  {10, 2},      {10.5, 2},  {19.999999, 2},
      {20, 4},  {29.5, 4}, {30, 6},     {31, 6},      {1e300, 6}, {-1e300, 2},
      {inf, 6}, {-inf, 2}, {9.2e18, 6}, {-9.2e18, 2}, {nan, 2}};
  for (const auto& c : cases) {
    EXPECT_EQ(c.second, opacity->valueAt(c.first)) << "at " << c.first;
  }
}

TEST_F(ParameterTest, NeighbourQueriesLookStrictlyBeforeAndAfterUpToTheLimits) {
  EXPECT_EQ("0=1 ", keyFrameText(*opacity));
  EXPECT_EQ(kMinTime, opacity->prevKeyFrameTime(0));
  EXPECT_EQ(kMaxTime, opacity->nextKeyFrameTime(0));

  opacity->addKeyFrame(-5, 0.5);
  opacity->addKeyFrame(10, 0.0);
  const long long lo = kMinTime, hi = kMaxTime;
  // time, previous, next
  const long long cases[][3] = {{lo, lo, -5}, {-6, lo, -5}, {-5, lo, 0},  {-1, -5, 0}, {0, -5, 10},
                                {3, 0, 10},   {10, 0, hi},  {11, 10, hi}, {hi, 10, hi}};
  for (const auto& c : cases) {
    EXPECT_EQ(c[1], opacity->prevKeyFrameTime(c[0])) << "before " << c[0];
    EXPECT_EQ(c[2], opacity->nextKeyFrameTime(c[0])) << "after " << c[0];
  }
  EXPECT_EQ(-5, opacity->firstKeyFrameTime());
  EXPECT_EQ(10, opacity->lastKeyFrameTime());

  // Without key frames: the default value and the limits turned round.
  for (long long time : {-5LL, 0LL, 10LL}) opacity->removeKeyFrame(time);
  EXPECT_EQ(1.0, opacity->valueAt(0));
  EXPECT_EQ(1.0, opacity->valueAt(std::nan("")));
  EXPECT_EQ(kMaxTime, opacity->firstKeyFrameTime());
  EXPECT_EQ(kMinTime, opacity->lastKeyFrameTime());
  EXPECT_EQ(kMinTime, opacity->prevKeyFrameTime(0));
  EXPECT_EQ(kMaxTime, opacity->nextKeyFrameTime(0));
}

TEST_F(ParameterTest, EveryEditNotifiesOnceWithTheChangeComplete) {
  const boost::shared_ptr<Parameter<double>> source =
      Parameter<double>::create(project, "other", 0.0);
  source->addKeyFrame(40, 3.0);
  const struct {
    const char* what;
    std::function<void()> edit;
    std::string after;
  } cases[] = {
      {"add", [&] { opacity->addKeyFrame(10, 2.0); }, "0=1 10=2 "},
      {"add over", [&] { opacity->addKeyFrame(0, 2.0); }, "0=2 "},
      {"add shared", [&] { opacity->addKeyFrame(frame(-3, 4.0)); }, "-3=4 0=1 "},
      {"set", [&] { opacity->setKeyFrameValue(0, 0.5); }, "0=0.5 "},
      {"remove", [&] { opacity->removeKeyFrame(0); }, ""},
      {"replace", [&] { opacity->replaceKeyFrame(0, frame(0, 7.0)); }, "0=7 "},
      {"move", [&] { opacity->moveKeyFrame(0, 4); }, "4=1 "},
      {"copy", [&] { opacity->copyKeyFramesFrom(*source); }, "0=0 40=3 "},
  };
  for (const auto& c : cases) {
    opacity = Parameter<double>::create(project, "opacity", 1.0);
    CountingObserver observer;
    std::string seen;
    observer.onUpdate = [&] { seen = keyFrameText(*opacity); };
    opacity->attach(&observer);
    c.edit();
    EXPECT_EQ(1, observer.count) << c.what;
    EXPECT_EQ(c.after, seen) << c.what;
    EXPECT_EQ(c.after, keyFrameText(*opacity)) << c.what;
    opacity->detach(&observer);
  }
}

TEST_F(ParameterTest, EditsGiveBackWhatTheyReplacedAndAddingReplacesTheObject) {
  const Parameter<double>::KeyFramePtr resting = opacity->keyFrame(0);
  opacity->addKeyFrame(0, 5.0);
  EXPECT_NE(resting, opacity->keyFrame(0));
  EXPECT_EQ(1.0, resting->value());
  opacity->addKeyFrame(10, 2.0);
  EXPECT_EQ(2.0, opacity->setKeyFrameValue(10, 3.0));
  const Parameter<double>::KeyFramePtr old = opacity->keyFrame(0);
  EXPECT_EQ(old, opacity->replaceKeyFrame(0, frame(0, 9.0)));
  EXPECT_EQ(9.0, opacity->removeKeyFrame(0));
  EXPECT_EQ("10=3 ", keyFrameText(*opacity));
}

TEST_F(ParameterTest, MisuseThrowsNamingTheParameterAndChangesNothing) {
  opacity->addKeyFrame(10, 2.0);
  const boost::shared_ptr<Parameter<float>> otherType =
      Parameter<float>::create(project, "volume", 1.0f);
  const struct {
    const char* what;
    std::function<void()> misuse;
    const char* mentions;  // the time or the other parameter
  } cases[] = {
      {"set", [&] { opacity->setKeyFrameValue(7, 1.0); }, "7"},
      {"remove", [&] { opacity->removeKeyFrame(7); }, "7"},
      {"move from nothing", [&] { opacity->moveKeyFrame(7, 8); }, "7"},
      {"move onto a key frame", [&] { opacity->moveKeyFrame(0, 10); }, "10"},
      {"replace nothing", [&] { opacity->replaceKeyFrame(7, frame(7, 1.0)); }, "7"},
      {"replace by null", [&] { opacity->replaceKeyFrame(0, Frame()); }, "null"},
      {"add null", [&] { opacity->addKeyFrame(Frame()); }, "null"},
      {"copy another type", [&] { opacity->copyKeyFramesFrom(*otherType); }, "\"volume\""},
  };
  const Parameter<double>::KeyFramePtr atZero = opacity->keyFrame(0);
  CountingObserver observer;
  opacity->attach(&observer);
  for (const auto& c : cases) {
    try {
      c.misuse();
      ADD_FAILURE() << c.what << " didn't throw";
    } catch (const KelMediaLibException& e) {
      const std::string text = e.what();
      EXPECT_NE(std::string::npos, text.find("\"opacity\"")) << c.what << ": " << text;
      EXPECT_NE(std::string::npos, text.find(c.mentions)) << c.what << ": " << text;
    }
    EXPECT_EQ("0=1 10=2 ", keyFrameText(*opacity)) << c.what;
    EXPECT_EQ(atZero, opacity->keyFrame(0)) << c.what;
  }
  EXPECT_EQ(0, observer.count);
  EXPECT_EQ(1u, opacity->numObservers());
}

TEST_F(ParameterTest, SharedKeyFrameIsSeenMovingAndChanging) {
  const Frame shared = frame(10, 2.0);
  opacity->addKeyFrame(shared);
  EXPECT_EQ(shared, opacity->keyFrame(10));

  opacity->moveKeyFrame(10, 25);
  EXPECT_EQ(25, shared->time());
  EXPECT_FALSE(opacity->keyFrame(10));
  EXPECT_EQ(shared, opacity->keyFrame(25));

  opacity->setKeyFrameValue(25, 3.0);
  EXPECT_EQ(3.0, shared->value());
}

TEST_F(ParameterTest, ReplacedRestingKeyFrameKeepsItsTimeUntilMovedThere) {
  // The first animation on a parameter at rest: its left key frame takes the
  // resting key frame's place, then the place moves to the key frame's time.
  const Frame left = frame(30, 4.0);
  const Parameter<double>::KeyFramePtr resting = opacity->replaceKeyFrame(0, left);
  EXPECT_EQ(0, resting->time());
  EXPECT_EQ(left, opacity->keyFrame(0));
  EXPECT_EQ(30, left->time());

  opacity->moveKeyFrame(0, 30);
  opacity->addKeyFrame(frame(60, 8.0));
  EXPECT_EQ((std::vector<long long>{30, 60}), opacity->keyFrameTimes());
  EXPECT_EQ(left, opacity->keyFrame(30));
  EXPECT_EQ(30, left->time());
  EXPECT_EQ(4.0, opacity->valueAt(0));
  EXPECT_EQ(4.0, opacity->valueAt(45));
}

TEST_F(ParameterTest, LeftParameterStepsFromKeyFrameToKeyFrame) {
  const boost::shared_ptr<LeftParameter<std::string>> text =
      LeftParameter<std::string>::create(project, "text", "a");
  text->addKeyFrame(10, "b");
  EXPECT_EQ("a", text->valueAt(9.99));
  EXPECT_EQ("b", text->valueAt(10));
  EXPECT_EQ("b", text->valueAt(1e12));
  EXPECT_FALSE(text->interpolaterParameter());
}

TEST_F(ParameterTest, WritesItsKeyFramesAsXML) {
  opacity->addKeyFrame(10, 0.5);
  EXPECT_EQ(
      "<Parameter id=\"1\" name=\"opacity\">\n"
      "  <Keyframes>\n"
      "    <Keyframe time=\"0\" value=\"1\"/>\n"
      "    <Keyframe time=\"10\" value=\"0.5\"/>\n"
      "  </Keyframes>\n"
      "</Parameter>\n",
      xmlOf(*opacity));
}

}  // namespace
