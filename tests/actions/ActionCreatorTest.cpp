#include "actions/Action.h"
#include "actions/ActionCreator.h"
#include "actions/OrigToModified.h"
#include "actions/OrvException.h"
#include "actions/ParameterRange.h"
#include "actions/SetTransform.h"
#include "actions/TranslateTransform.h"
#include "core/ThreadSafe.h"
#include "media/media/TextBox.h"
#include "media/media/Transformer.h"
#include "values/InterpolatingParam.h"
#include "values/VectorParam.h"

#include <gtest/gtest.h>

#include <boost/make_shared.hpp>

#include <string>

using namespace OrvMediaLib;
using KelMediaLib::Range;

namespace {

typedef ActionDescription::RangeDescription RangeDescription;

// A text box showing (0, 200) of key frame time at speed 2: its own time is
// twice key frame time, and the edge test compares without that mapping.
class ActionCreatorTest : public testing::Test {
 protected:
  ActionCreatorTest()
      : project(boost::make_shared<KelMediaLib::ThreadSafe>()),
        box(KelMediaLib::TextBox::create("t", 200, 1.0f, 1.0f, project)) {
    box->setScalar(2.0);
  }

  static ActionDescription describe(int type, const std::string& parameterName) {
    ActionDescription description(static_cast<ActionDescription::ActionType>(type));
    description.addParameterRange(
        RangeDescription(parameterName, OrigToModified(), SetTransform(), 0.5));
    return description;
  }

  boost::shared_ptr<KelMediaLib::ThreadSafe> project;
  boost::shared_ptr<KelMediaLib::TextBox> box;
};

}  // namespace

TEST_F(ActionCreatorTest, FailuresComeInTheirOrderAndLeaveNothingBehind) {
  const struct {
    int type;
    Range<long long> range;
    std::string parameter;
    std::string message;
  } rows[] = {
      {7, Range<long long>(100, 50), "nosuch",
       "Unsupported Action Description Type in Action Creator"},
      {0, Range<long long>(100, 50), "nosuch",
       "attempting to add an edge action not located at an edge"},
      {1, Range<long long>(100, 50), "nosuch",
       "attempting to create an action on a media without specified parameter"},
      {1, Range<long long>(100, 50), "text",
       "attempting to create an action on a media without specified parameter"},
      // Ends at the media's end in its own time, but the key frames land at 50
      // and 100.
      {0, Range<long long>(100, 100), "opacity", "trying to add an edge action not at the edge"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.message);
    try {
      ActionCreator::createAction(box, describe(row.type, row.parameter), row.range);
      ADD_FAILURE() << "no exception";
    } catch (const OrvException& failure) {
      EXPECT_EQ(row.message, failure.what());
    }
    EXPECT_EQ(1u, box->opacity()->numKeyFrames());
    EXPECT_EQ(0u, box->opacity()->numObservers());
  }
}

TEST_F(ActionCreatorTest, RangesShareTheirMappedTimesAndValuesComeFromTheStart) {
  const auto translation = box->transformer()->translation()->at(0);
  translation->setKeyFrameValue(0, 3.0);
  ActionDescription description = describe(1, "opacity");
  description.addParameterRange(
      RangeDescription("translation0", "esIn", TranslateTransform(), 10.0));
  const auto action = ActionCreator::createAction(box, description, Range<long long>(100, 50));

  ASSERT_EQ(2, action->numParameterRanges());
  EXPECT_EQ(Range<long long>(50, 25), action->timeRange());
  const auto ranges = action->parameterRanges();
  const ParameterRange& opacity = *ranges->front();
  const ParameterRange& moved = *ranges->back();
  EXPECT_EQ(1.0, opacity.leftKeyframe()->value());
  EXPECT_EQ(0.5, opacity.rightKeyframe()->value());
  EXPECT_FALSE(opacity.interpolater());

  EXPECT_EQ(Range<long long>(50, 25), moved.timeRange());
  EXPECT_EQ(3.0, moved.leftKeyframe()->value());
  EXPECT_EQ(13.0, moved.rightKeyframe()->value());
  EXPECT_TRUE(dynamic_cast<const OrigToModified*>(&moved.modifier()));
  ASSERT_TRUE(moved.interpolater());
  EXPECT_EQ(translation->interpolaterParameter(), moved.interpolater()->parameter());
  EXPECT_EQ(50, moved.interpolater()->keyframe()->time());
  EXPECT_EQ("esIn", moved.interpolater()->keyframe()->value()->name());
}

TEST_F(ActionCreatorTest, WithoutRangesTheActionKeepsTheMappedStartAndTheCallersDuration) {
  const struct {
    int type;
    Range<long long> range;
    Range<long long> expected;
  } rows[] = {
      {1, Range<long long>(100, 50), Range<long long>(50, 50)},
      {0, Range<long long>(0, 30), Range<long long>(0, 30)},
      {0, Range<long long>(170, 30), Range<long long>(85, 30)},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.range.start);
    const auto action = ActionCreator::createAction(
        box, ActionDescription(static_cast<ActionDescription::ActionType>(row.type)), row.range);
    EXPECT_EQ(0, action->numParameterRanges());
    EXPECT_EQ(row.expected, action->timeRange());
  }
}
