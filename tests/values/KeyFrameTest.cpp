#include "values/KeyFrame.h"
#include "values/Interpolater.h"
#include "values/Point.h"

#include <gtest/gtest.h>

#include <boost/shared_ptr.hpp>

#include <memory>
#include <string>
#include <vector>

using namespace KelMediaLib;

namespace {

class Opaque;

TEST(KeyFrameTest, CloneIsIndependentOfTheOriginal) {
  KeyFrame<Point> original(100, Point(1, 2, 3));
  std::unique_ptr<KeyFrame<Point>> copy(original.clone());
  copy->setValue(Point(4, 5, 6));
  EXPECT_EQ(original.value(), Point(1, 2, 3));
  EXPECT_EQ(copy->time(), 100);
}

TEST(KeyFrameTest, DescriptionShowsTheValueWhenItHasATextForm) {
  EXPECT_EQ(KeyFrame<double>(100, 0.5).description(), "KeyFrame(100, 0.5)");
  EXPECT_EQ(KeyFrame<std::string>(3, "title").description(), "KeyFrame(3, title)");
  EXPECT_EQ(KeyFrame<Point>(-2, Point(1, 2, 3)).description(), "KeyFrame(-2, (1,2,3))");
  EXPECT_EQ(KeyFrame<boost::shared_ptr<Interpolater<float>>>(
                7, EaseInOutSinusoidalInterpolater<float>::getInstance())
                .description(),
            "KeyFrame(7, eios)");
  EXPECT_EQ(KeyFrame<std::vector<double>>(4, {1.0}).description(), "KeyFrame(4)");
  EXPECT_EQ(KeyFrame<boost::shared_ptr<Opaque>>(5, boost::shared_ptr<Opaque>()).description(),
            "KeyFrame(5)");
}

}  // namespace
