#include "values/Interpolater.h"

#include <gtest/gtest.h>

#include <boost/lexical_cast.hpp>
#include <boost/shared_ptr.hpp>

#include <cmath>
#include <sstream>
#include <string>
#include <thread>
#include <utility>
#include <vector>

using namespace KelMediaLib;

namespace {

typedef boost::shared_ptr<Interpolater<double>> DoubleInterpolater;

DoubleInterpolater named(const std::string& name) {
  return boost::lexical_cast<DoubleInterpolater>(name);
}

struct CurveCase {
  const char* name;
  double left;
  double right;
  double fraction;
  double expected;
};

TEST(InterpolaterTest, CurvesAtTheirCharacteristicPoints) {
  const CurveCase cases[] = {
      {"linr", 0, 8, 0.25, 2},
      {"linr", 0, 1, 2, 2},  // no clamping: extrapolates
      {"linr", 3, 7, 0, 3},
      {"linr", 3, 7, 1, 7},
      {"left", 3, 7, 0.9, 3},
      {"left", 3, 7, 1, 3},
      {"esIn", 0, 1, 0.5, 0.25},
      {"esIn", 0, 10, 2, 40},
      {"esOt", 0, 1, 0.5, std::sqrt(0.5)},
      {"esOt", 0, 1, 0.25, 0.5},
      {"eioe", 0, 1, 0, 0},
      {"eioe", 0, 1, 0.25, 0.125},
      {"eioe", 0, 1, 0.5, 0.5},
      {"eioe", 0, 1, 0.75, 0.875},
      {"eioe", 0, 1, 1, 1},
      {"eios", 0, 1, 0, 0},
      {"eios", 0, 1, 0.25, 0.5 - std::sqrt(0.5) / 2},
      {"eios", 0, 1, 0.5, 0.5},
      {"eios", 0, 1, 1, 1},
  };
  for (const CurveCase& c : cases) {
    EXPECT_NEAR(named(c.name)->interpolate(c.left, c.right, c.fraction), c.expected, 1e-15)
        << c.name << " at " << c.fraction;
  }
  // The sigmoid sends NaN through its upper half.
  EXPECT_TRUE(std::isnan(named("eioe")->interpolate(0, 1, std::nan(""))));
}

TEST(InterpolaterTest, FloatIsMixedInDoubleAndNarrowedOnce) {
  const float left = 0.1f;
  const float right = 0.7f;
  const double w = 1.0 / 3;
  const float expected = static_cast<float>(static_cast<double>(left) * (1 - w) + w * right);
  EXPECT_EQ(LinearInterpolater<float>::getInstance()->interpolate(left, right, w), expected);
  EXPECT_EQ(LinearInterpolater<float>::getInstance()->interpolate(2, 4, 0.5), 3.0f);
}

TEST(InterpolaterTest, CompoundValuesMixComponentByComponent) {
  EXPECT_EQ(
      LinearInterpolater<Point>::getInstance()->interpolate(Point(0, 2, -4), Point(4, 6, 4), 0.25),
      Point(1, 3, -2));
  EXPECT_EQ(EaseInInterpolater<Color>().interpolate(Color(0, 1, 0, 1), Color(1, 0, 0.5f, 1), 0.5),
            Color(0.25f, 0.75f, 0.125f, 1));
  EXPECT_EQ(LinearInterpolater<AudioPosition>::getInstance()->interpolate(AudioPosition(-1, 0),
                                                                          AudioPosition(1, 1), 0.5),
            AudioPosition(0, 0.5));
  const Color left(0.1f, 0.2f, 0.3f, 0.4f);
  EXPECT_EQ(LeftInterpolater<Color>::getInstance()->interpolate(left, Color(1, 1, 1, 1), 1), left);
}

// Stateless curves are shared; the eases, with an exponent of their own, are not.
TEST(InterpolaterTest, SharedAndFreshInstances) {
  const std::pair<const char*, bool> cases[] = {{"linr", true}, {"left", true},  {"eios", true},
                                                {"eioe", true}, {"esIn", false}, {"esOt", false}};
  for (const auto& c : cases) {
    EXPECT_EQ(c.second, named(c.first).get() == named(c.first).get()) << c.first;
  }
  EXPECT_EQ(named("linr").get(), LinearInterpolater<double>::getInstance().get());
  // Each value type has its own singleton.
  const boost::shared_ptr<Interpolater<float>> floatLinear =
      boost::lexical_cast<boost::shared_ptr<Interpolater<float>>>("linr");
  EXPECT_NE(static_cast<const void*>(floatLinear.get()),
            static_cast<const void*>(named("linr").get()));
}

TEST(InterpolaterTest, NamesReadAndWriteBack) {
  for (const char* name : {"linr", "left", "esIn", "esOt", "eios", "eioe"}) {
    const boost::shared_ptr<Interpolater<Point>> interpolater =
        boost::lexical_cast<boost::shared_ptr<Interpolater<Point>>>(std::string(name));
    EXPECT_EQ(interpolater->name(), name);
    std::ostringstream out;
    writeXMLValue(out, interpolater);
    EXPECT_EQ(out.str(), name);
  }
}

TEST(InterpolaterTest, UnknownNamesThrow) {
  for (const char* bad : {"LINR", "Linr", "lin", "linrx", "", "esin", "eio e"}) {
    try {
      named(bad);
      ADD_FAILURE() << "no exception for '" << bad << "'";
    } catch (const KelMediaLibException& e) {
      EXPECT_STREQ(e.what(), "trying to read an unknown interpolater") << bad;
    }
  }
  std::ostringstream out;
  EXPECT_THROW(writeXMLValue(out, DoubleInterpolater()), KelMediaLibException);
}

}  // namespace

// The shared instances are made on first use; threads that ask first at the
// same time (a render thread and the editing one) must get the one object.
// Each ctest test is a process of its own, so the instances are fresh here.
TEST(InterpolaterConcurrency, ThreadsAskingFirstShareOneInstance) {
  const char* const names[] = {"linr", "left", "eios", "eioe"};
  std::vector<std::vector<const void*>> seen(4);
  std::vector<std::thread> threads;
  for (auto& mine : seen) {
    threads.emplace_back([&mine, &names] {
      for (const char* name : names) mine.push_back(named(name).get());
    });
  }
  for (auto& thread : threads) thread.join();
  for (const auto& mine : seen) EXPECT_EQ(mine, seen[0]);
}
