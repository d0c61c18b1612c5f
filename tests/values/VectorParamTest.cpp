#include "values/VectorParam.h"

#include "core/KelMediaLibException.h"
#include "values/ParameterTestSupport.h"

#include <gtest/gtest.h>

#include <boost/shared_ptr.hpp>

#include <string>
#include <vector>

using KelMediaLib::KelMediaLibException;
using KelMediaLib::ThreadSafe;
using KelMediaLib::VectorParam;
using parameterTests::keyFrameText;

namespace {

class VectorParamTest : public ::testing::Test {
 protected:
  boost::shared_ptr<ThreadSafe> project = parameterTests::newProject();
};

TEST_F(VectorParamTest, MembersAreNamedByIndexAndRestOnTheirDefaults) {
  const auto crop = VectorParam::create(project, "sourceCrop", {0, 1, 2, 3});
  ASSERT_EQ(4, crop->numDimensions());
  for (int i = 0; i < 4; ++i) {
    EXPECT_EQ("sourceCrop" + std::to_string(i), crop->at(i)->name());
    EXPECT_EQ(i, crop->at(i)->valueAt(0));
    EXPECT_EQ(1u, crop->at(i)->numKeyFrames());
    EXPECT_TRUE(crop->at(i)->interpolaterParameter());
  }

  crop->at(2)->addKeyFrame(10, 4);
  EXPECT_EQ((std::vector<double>{0, 1, 3, 3}), crop->valueAt(5));
}

TEST_F(VectorParamTest, AtOutsideTheDimensionsThrows) {
  const auto scale = VectorParam::create(project, "scale", {1, 1, 1});
  for (int index : {-1, 3, 1000}) {
    try {
      scale->at(index);
      ADD_FAILURE() << index << " didn't throw";
    } catch (const KelMediaLibException& e) {
      const std::string text = e.what();
      EXPECT_NE(std::string::npos, text.find("\"scale\"")) << text;
      EXPECT_NE(std::string::npos, text.find(std::to_string(index))) << text;
    }
  }
  EXPECT_THROW(VectorParam::create(project, "none", {})->at(0), KelMediaLibException);
}

TEST_F(VectorParamTest, CopiesMemberByMemberAndRefusesAnotherDimension) {
  const auto source = VectorParam::create(project, "scale", {1, 2});
  source->at(1)->addKeyFrame(10, 4);
  const auto target = VectorParam::create(project, "scale", {0, 0});
  target->copyKeyFramesFrom(*source);
  EXPECT_EQ("0=1 ", keyFrameText(*target->at(0)));
  EXPECT_EQ("0=2 10=4 ", keyFrameText(*target->at(1)));
  EXPECT_NE(source->at(1)->keyFrame(10), target->at(1)->keyFrame(10));

  const auto wider = VectorParam::create(project, "scale", {5, 5, 5});
  EXPECT_THROW(target->copyKeyFramesFrom(*wider), KelMediaLibException);
  EXPECT_EQ("0=2 10=4 ", keyFrameText(*target->at(1)));
}

}  // namespace
