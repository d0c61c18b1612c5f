// A parameter tells its holders (observers attached with attachConcerned and
// holding key frames) only of the changes that concern the key frames they
// hold; its other observers hear of every change.

#include "values/KeyFrame.h"
#include "values/Parameter.h"
#include "values/ParameterTestSupport.h"

#include <gtest/gtest.h>

#include <boost/make_shared.hpp>
#include <boost/shared_ptr.hpp>

#include <functional>
#include <map>
#include <string>

using KelMediaLib::KeyFrame;
using KelMediaLib::Parameter;
using parameterTests::CountingObserver;
using parameterTests::keyFrameText;

namespace {

typedef boost::shared_ptr<KeyFrame<double>> Frame;

// Key frames at 0, 10, ..., 50 (values 0..5), each held by its own counter.
class ParameterRoutingTest : public ::testing::Test {
 protected:
  ParameterRoutingTest() { reset(); }
  ~ParameterRoutingTest() override { release(); }

  // A new parameter with the six key frames and untold holders.
  void reset() {
    release();
    opacity = Parameter<double>::create(parameterTests::newProject(), "opacity", 0.0);
    for (long long time = 10; time <= 50; time += 10) {
      opacity->addKeyFrame(time, static_cast<double>(time / 10));
    }
    for (long long time = 0; time <= 50; time += 10) {
      holders[time].count = 0;
      hold(time, opacity->keyFrame(time));
    }
    everything.count = 0;
    opacity->attach(&everything);
  }
  void release() {
    if (opacity) {
      opacity->detach(&everything);
      for (auto& entry : holders) {
        opacity->detach(&entry.second);
      }
    }
  }

  void hold(long long name, const boost::shared_ptr<const KeyFrame<double>>& keyFrame) {
    CountingObserver& holder = holders[name];
    opacity->attachConcerned(&holder);
    keyFrame->attachHolder(&holder);
  }

  // The names of the holders told, each with its count.
  std::string told() const {
    std::string text;
    for (const auto& entry : holders) {
      if (entry.second.count != 0) {
        text += std::to_string(entry.first) + "x" + std::to_string(entry.second.count) + " ";
      }
    }
    return text;
  }

  boost::shared_ptr<Parameter<double>> opacity;
  std::map<long long, CountingObserver> holders;
  CountingObserver everything;
};

TEST_F(ParameterRoutingTest, AChangeReachesTheHoldersOfItsKeyFrameAndOfTheNextOne) {
  const struct {
    const char* edit;
    std::function<void(Parameter<double>&)> run;
    const char* told;
  } rows[] = {
      {"set a value", [](Parameter<double>& p) { p.setKeyFrameValue(20, 7.0); }, "20x1 30x1 "},
      {"set the last value", [](Parameter<double>& p) { p.setKeyFrameValue(50, 7.0); }, "50x1 "},
      {"add between", [](Parameter<double>& p) { p.addKeyFrame(25, 7.0); }, "30x1 "},
      {"add over one", [](Parameter<double>& p) { p.addKeyFrame(20, 7.0); }, "20x1 30x1 "},
      {"remove", [](Parameter<double>& p) { p.removeKeyFrame(20); }, "20x1 30x1 "},
      {"move within its gap", [](Parameter<double>& p) { p.moveKeyFrame(20, 25); }, "20x1 30x1 "},
      {"move past others", [](Parameter<double>& p) { p.moveKeyFrame(10, 45); }, "10x1 20x1 50x1 "},
      {"replace",
       [](Parameter<double>& p) {
         p.replaceKeyFrame(30, boost::make_shared<KeyFrame<double>>(30, 7.0));
       },
       "30x1 40x1 "},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.edit);
    reset();
    row.run(*opacity);
    EXPECT_EQ(row.told, told());
    EXPECT_EQ(1, everything.count);
  }
}

TEST_F(ParameterRoutingTest, AValueWrittenInPlaceReachesItsHoldersAndTheNextOnesNextTime) {
  const_cast<KeyFrame<double>&>(*opacity->keyFrame(30)).setValue(9.0);
  opacity->askNextAround(30);
  EXPECT_EQ("", told());
  EXPECT_EQ(0, everything.count);
  opacity->setKeyFrameValue(0, 9.0);
  EXPECT_EQ("0x1 10x1 30x1 40x1 ", told());
  EXPECT_EQ(1, everything.count);
}

TEST_F(ParameterRoutingTest, AHolderThatAskedHearsTheNextChangeWhateverItConcerns) {
  opacity->askNextNotification(&holders[0]);
  opacity->setKeyFrameValue(40, 8.0);
  opacity->setKeyFrameValue(40, 9.0);
  EXPECT_EQ("0x1 40x2 50x2 ", told());
}

TEST_F(ParameterRoutingTest, CopyingKeyFramesTellsTheHoldersOfTheKeyFramesReplaced) {
  const auto source = Parameter<double>::create(parameterTests::newProject(), "source", 3.0);
  opacity->copyKeyFramesFrom(*source);
  EXPECT_EQ("0x1 10x1 20x1 30x1 40x1 50x1 ", told());
  EXPECT_EQ("0=3 ", keyFrameText(*opacity));
}

}  // namespace
