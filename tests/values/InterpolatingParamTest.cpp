#include "values/InterpolatingParam.h"

#include "core/KelMediaLibException.h"
#include "core/EditJournal.h"
#include "values/Interpolater.h"
#include "values/KeyFrame.h"
#include "values/ParameterTestSupport.h"
#include "values/Point.h"

#include <gtest/gtest.h>

#include <boost/shared_ptr.hpp>
#include <boost/weak_ptr.hpp>

#include <functional>
#include <limits>
#include <string>
#include <thread>
#include <utility>
#include <vector>

using KelMediaLib::EaseInInterpolater;
using KelMediaLib::EaseInOutDoubleExponentialSigmoidInterpolater;
using KelMediaLib::Interpolater;
using KelMediaLib::InterpolatingParam;
using KelMediaLib::KelMediaLibException;
using KelMediaLib::LeftInterpolater;
using KelMediaLib::LinearInterpolater;
using KelMediaLib::Parameter;
using KelMediaLib::Point;
using KelMediaLib::ThreadSafe;
using parameterTests::CountingObserver;
using parameterTests::keyFrameText;
using parameterTests::kMaxTime;
using parameterTests::kMinTime;
using parameterTests::xmlOf;

namespace {

typedef boost::shared_ptr<Interpolater<double>> Interp;

Interp easeIn() {
  return Interp(new EaseInInterpolater<double>());
}
Interp sigmoid() {
  return EaseInOutDoubleExponentialSigmoidInterpolater<double>::getInstance();
}
Interp left() {
  return LeftInterpolater<double>::getInstance();
}
Interp linear() {
  return LinearInterpolater<double>::getInstance();
}

class InterpolatingParamTest : public ::testing::Test {
 protected:
  boost::shared_ptr<ThreadSafe> project = parameterTests::newProject();
  boost::shared_ptr<InterpolatingParam<double>> scale =
      InterpolatingParam<double>::create(project, "scale", 1.0);
};

TEST_F(InterpolatingParamTest, MixesLinearlyBetweenAndHoldsTheEndsOutside) {
  scale->setKeyFrameValue(0, 0.0);
  scale->addKeyFrame(10, 8.0);
  scale->addKeyFrame(20, 4.0);
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const double inf = std::numeric_limits<double>::infinity();
  const std::pair<double, double> cases[] = {
      {-1, 0}, {0, 0},  {2.5, 2},   {5, 4},      {9.75, 7.8}, {10, 8},   {15, 6},
      {20, 4}, {25, 4}, {1e300, 4}, {-1e300, 0}, {inf, 4},    {-inf, 0}, {nan, 0},
  };
  for (const auto& c : cases) {
    EXPECT_DOUBLE_EQ(c.second, scale->valueAt(c.first)) << "at " << c.first;
  }
}

TEST_F(InterpolatingParamTest, EachStretchUsesTheCompanionsInterpolaterAtItsLeftKeyFrame) {
  // Value key frames 0 -> 0, 10 -> 1, 20 -> 0, 30 -> 1; halfway in each stretch
  // a linear mix gives 0.5, ease-in 0.25 (or 0.75 going down), left 0 or 1 and
  // the sigmoid 0.5.
  scale->setKeyFrameValue(0, 0.0);
  scale->addKeyFrame(10, 1.0);
  scale->addKeyFrame(20, 0.0);
  scale->addKeyFrame(30, 1.0);
  const struct {
    const char* what;
    std::vector<std::pair<long long, Interp>> companion;
    double at[4];  // at 5, 15, 25 and 12.5
  } cases[] = {
      {"at birth", {{0, linear()}}, {0.5, 0.5, 0.5, 0.75}},
      {"changed mid-way", {{0, linear()}, {10, easeIn()}}, {0.5, 0.75, 0.25, 0.9375}},
      {"one inside a stretch governs only the next",
       {{0, linear()}, {10, easeIn()}, {12, left()}},
       {0.5, 0.75, 0.0, 0.9375}},
      {"earlier one serves", {{-1, sigmoid()}, {20, left()}}, {0.5, 0.5, 0.0, 0.875}},
  };
  for (const auto& c : cases) {
    const auto companion = scale->interpolaterParameter();
    while (companion->numKeyFrames() > 0) {
      companion->removeKeyFrame(companion->firstKeyFrameTime());
    }
    for (const auto& entry : c.companion) {
      companion->addKeyFrame(entry.first, entry.second);
    }
    const double times[] = {5, 15, 25, 12.5};
    for (int i = 0; i < 4; ++i) {
      EXPECT_DOUBLE_EQ(c.at[i], scale->valueAt(times[i])) << c.what << " at " << times[i];
    }
    EXPECT_DOUBLE_EQ(1.0, scale->valueAt(30)) << c.what;
  }
}

TEST_F(InterpolatingParamTest, MixesAcrossTheWholeTimeAxisAndComponentByComponent) {
  scale->setKeyFrameValue(0, 0.0);
  scale->moveKeyFrame(0, kMinTime);
  scale->addKeyFrame(kMaxTime, 2.0);
  EXPECT_DOUBLE_EQ(1.0, scale->valueAt(0));

  const auto anchor = InterpolatingParam<Point>::create(project, "anchor", Point(0, 0, 0));
  anchor->addKeyFrame(4, Point(4, -8, 2));
  EXPECT_EQ(Point(1, -2, 0.5), anchor->valueAt(1));
}

TEST_F(InterpolatingParamTest, CopyTakesTheCompanionAlongAndRefusesPlainParameters) {
  const auto source = InterpolatingParam<double>::create(project, "source", 0.0);
  source->addKeyFrame(10, 1.0);
  source->interpolaterParameter()->moveKeyFrame(0, -1);
  const Interp ease = easeIn();
  source->interpolaterParameter()->addKeyFrame(10, ease);
  source->addKeyFrame(20, 0.0);

  CountingObserver observer;
  scale->attach(&observer);
  scale->copyKeyFramesFrom(*source);
  EXPECT_EQ(1, observer.count);
  EXPECT_EQ("0=0 10=1 20=0 ", keyFrameText(*scale));
  const auto companion = scale->interpolaterParameter();
  EXPECT_EQ((std::vector<long long>{-1, 10}), companion->keyFrameTimes());
  EXPECT_NE(source->interpolaterParameter()->keyFrame(10), companion->keyFrame(10));
  EXPECT_EQ(ease, companion->keyFrame(10)->value());
  for (double t : {2.5, 5.0, 12.5, 15.0}) {
    EXPECT_DOUBLE_EQ(source->valueAt(t), scale->valueAt(t)) << "at " << t;
  }

  source->interpolaterParameter()->setKeyFrameValue(10, left());
  EXPECT_DOUBLE_EQ(0.75, scale->valueAt(15));

  const auto plain = Parameter<double>::create(project, "plain", 3.0);
  EXPECT_THROW(scale->copyKeyFramesFrom(*plain), KelMediaLibException);
  EXPECT_EQ("0=0 10=1 20=0 ", keyFrameText(*scale));
  EXPECT_EQ(2u, companion->numKeyFrames());
  EXPECT_EQ(1, observer.count);
}

// The companion is born holding the shared linear instance at 0.
TEST_F(InterpolatingParamTest, WritesTheCompanionBeforeItsKeyFrames) {
  EXPECT_EQ(linear(), scale->interpolaterParameter()->keyFrame(0)->value());
  scale->interpolaterParameter()->addKeyFrame(10, easeIn());
  EXPECT_EQ(
      "<InterpolatingParam id=\"1\" name=\"scale\">\n"
      "  <Parameters>\n"
      "    <Parameter id=\"2\" name=\"interpolater\">\n"
      "      <Keyframes>\n"
      "        <Keyframe time=\"0\" value=\"linr\"/>\n"
      "        <Keyframe time=\"10\" value=\"esIn\"/>\n"
      "      </Keyframes>\n"
      "    </Parameter>\n"
      "  </Parameters>\n"
      "  <Keyframes>\n"
      "    <Keyframe time=\"0\" value=\"1\"/>\n"
      "  </Keyframes>\n"
      "</InterpolatingParam>\n",
      xmlOf(*scale));
}

std::string timesOf(const InterpolatingParam<double>::InterpolaterParameter& companion) {
  std::string text;
  for (const long long time : companion.keyFrameTimes()) text += std::to_string(time) + " ";
  return text;
}

// Key frames at 0, 10 and 20; the companion holds linear at 0 and ease-in at
// 10 (and a stray at 5 where asked). Each edit reports its failure, if any,
// then the parameter's and the companion's times.
TEST_F(InterpolatingParamTest, MovesAndRemovalsTakeTheCompanionsKeyFrameAlong) {
  const struct {
    const char* edit;
    bool stray;
    std::function<void(InterpolatingParam<double>&)> run;
    const char* expected;
  } cases[] = {
      {"move 10 to 15", false, [](auto& p) { p.moveKeyFrame(10, 15); }, "0 15 20 |0 15 "},
      {"move 10 to 5 onto a stray", true, [](auto& p) { p.moveKeyFrame(10, 5); },
       "0 5 20 |0 5 10 "},
      {"move 20 to 25, no companion there", false, [](auto& p) { p.moveKeyFrame(20, 25); },
       "0 10 25 |0 10 "},
      {"move 10 onto 20", false, [](auto& p) { p.moveKeyFrame(10, 20); }, "refused|0 10 20 |0 10 "},
      {"move 30, missing", false, [](auto& p) { p.moveKeyFrame(30, 40); },
       "refused|0 10 20 |0 10 "},
      {"remove 10", false, [](auto& p) { p.removeKeyFrame(10); }, "0 20 |0 "},
      {"remove 0, then 10: the companion keeps its last", false,
       [](auto& p) {
         p.removeKeyFrame(0);
         p.removeKeyFrame(10);
       },
       "20 |10 "},
      {"remove 30, missing", false, [](auto& p) { p.removeKeyFrame(30); },
       "refused|0 10 20 |0 10 "},
  };
  for (const auto& c : cases) {
    const auto param = InterpolatingParam<double>::create(project, "scale", 1.0);
    param->addKeyFrame(10, 2.0);
    param->addKeyFrame(20, 4.0);
    const auto companion = param->interpolaterParameter();
    companion->addKeyFrame(10, easeIn());
    if (c.stray) companion->addKeyFrame(5, sigmoid());
    std::string result;
    try {
      c.run(*param);
    } catch (const KelMediaLibException&) {
      result = "refused|";
    }
    for (const long long time : param->keyFrameTimes()) result += std::to_string(time) + " ";
    EXPECT_EQ(c.expected, result + "|" + timesOf(*companion)) << c.edit;
  }
}

// The stretch keeps its interpolater when its left key frame moves, and the
// parameter's observers hear of the companion's edits, once per edit.
TEST_F(InterpolatingParamTest, CompanionEditsReachTheParametersObserversOnce) {
  scale->addKeyFrame(10, 0.0);
  scale->addKeyFrame(20, 1.0);
  scale->interpolaterParameter()->addKeyFrame(10, easeIn());
  const double eased = scale->valueAt(15);
  CountingObserver observer;
  scale->attach(&observer);
  scale->moveKeyFrame(10, 12);
  EXPECT_EQ(1, observer.count);
  EXPECT_DOUBLE_EQ(eased, scale->valueAt(16));
  scale->interpolaterParameter()->setKeyFrameValue(12, left());
  EXPECT_EQ(2, observer.count);
  EXPECT_EQ(0.0, scale->valueAt(16));
  scale->removeKeyFrame(12);
  EXPECT_EQ(3, observer.count);
  scale->detach(&observer);
}

// A parameter makes its companion when first asked for it. Until then it
// acts as one whose companion rests (linear at 0): each edit, made on a
// parameter whose companion is made and on one whose isn't, gives the same
// text, values and companion.
TEST_F(InterpolatingParamTest, ACompanionNotYetMadeActsAsOneAtRest) {
  const struct {
    const char* edit;
    std::function<void(InterpolatingParam<double>&)> run;
  } cases[] = {{"none", [](auto&) {}},
               {"key frames added", [](auto& p) { p.addKeyFrame(10, 3.0); }},
               {"the key frame at 0 moved", [](auto& p) { p.moveKeyFrame(0, 5); }},
               {"the key frame at 0 removed",
                [](auto& p) {
                  p.addKeyFrame(10, 3.0);
                  p.removeKeyFrame(0);
                }},
               {"another's key frames copied", [](auto& p) {
                  const auto other = InterpolatingParam<double>::create(
                      parameterTests::newProject(), "other", 0.0);
                  other->addKeyFrame(10, 2.0);
                  other->interpolaterParameter()->addKeyFrame(10, easeIn());
                  p.copyKeyFramesFrom(*other);
                }}};
  for (const auto& c : cases) {
    const auto made = InterpolatingParam<double>::create(project, "scale", 1.0);
    const auto notMade = InterpolatingParam<double>::create(project, "scale", 1.0);
    made->interpolaterParameter();
    c.run(*made);
    c.run(*notMade);
    EXPECT_EQ(xmlOf(*made), xmlOf(*notMade)) << c.edit;
    EXPECT_EQ(made->valueAt(7.5), notMade->valueAt(7.5)) << c.edit;
    EXPECT_EQ(timesOf(*made->interpolaterParameter()), timesOf(*notMade->interpolaterParameter()))
        << c.edit;
    EXPECT_EQ(xmlOf(*made), xmlOf(*notMade)) << c.edit << ", companion made";
  }
}

// A companion at rest is freed, to be made afresh when asked for, unless
// something else holds it or a journal could take it back.
TEST_F(InterpolatingParamTest, ReleasesACompanionOnlyAtRestAndUnheld) {
  using Held = boost::shared_ptr<const void>;
  const struct {
    const char* state;
    bool released;
    bool journalOpen;
    std::function<Held(InterpolatingParam<double>&)> prepare;
  } cases[] = {
      {"at rest", true, false, [](auto&) { return Held(); }},
      {"at rest again", true, false,
       [](auto& p) {
         p.interpolaterParameter()->addKeyFrame(10, easeIn());
         p.interpolaterParameter()->removeKeyFrame(10);
         return Held();
       }},
      {"held by a caller", false, false, [](auto& p) { return Held(p.interpolaterParameter()); }},
      {"its key frame held", false, false,
       [](auto& p) { return Held(p.interpolaterParameter()->keyFrame(0)); }},
      {"another interpolater", false, false,
       [](auto& p) {
         p.interpolaterParameter()->setKeyFrameValue(0, left());
         return Held();
       }},
      {"two key frames", false, false,
       [](auto& p) {
         p.interpolaterParameter()->addKeyFrame(10, easeIn());
         return Held();
       }},
      {"a journal open", false, true, [](auto&) { return Held(); }}};
  for (const auto& c : cases) {
    const auto param = InterpolatingParam<double>::create(project, "scale", 1.0);
    const boost::weak_ptr<const void> before = param->interpolaterParameter();
    const Held held = c.prepare(*param);
    const std::string text = xmlOf(*param);
    if (c.journalOpen) {
      KelMediaLib::EditJournal journal;
      const KelMediaLib::EditJournal::Scope scope(&journal);
      param->releaseCompanionAtRest();
    } else {
      param->releaseCompanionAtRest();
    }
    EXPECT_EQ(c.released, before.expired()) << c.state;
    EXPECT_EQ(text, xmlOf(*param)) << c.state;
  }
}

TEST(InterpolatingParamConcurrency, ReadersAskingFirstShareOneCompanion) {
  const auto param = InterpolatingParam<double>::create(parameterTests::newProject(), "scale", 1.0);
  std::vector<const void*> seen(4);
  std::vector<std::thread> readers;
  for (std::size_t i = 0; i < seen.size(); ++i) {
    readers.emplace_back([&, i] {
      seen[i] = param->interpolaterParameter().get();
      EXPECT_EQ(1.0, param->valueAt(5));
    });
  }
  for (std::thread& reader : readers) reader.join();
  for (const void* companion : seen) EXPECT_EQ(seen[0], companion);
}

}  // namespace
