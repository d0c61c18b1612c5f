#include "values/Range.h"
#include "values/Rect.h"

#include <gtest/gtest.h>

#include <boost/lexical_cast.hpp>

#include <sstream>
#include <string>

using KelMediaLib::Range;
using KelMediaLib::Rect;

namespace {

struct IntersectionCase {
  Range<long long> a;
  Range<long long> b;
  Range<long long> expected;
};

TEST(RangeTest, IntersectionSettlesEachEndOnItsOwn) {
  const IntersectionCase cases[] = {
      {{10, 20}, {15, 100}, {15, 15}},                               // overlap at the right
      {{15, 100}, {10, 20}, {15, 15}},                               // same, other order
      {{10, 20}, {12, 3}, {12, 3}},                                  // nested
      {{12, 3}, {10, 20}, {12, 3}},    {{10, 20}, {40, 5}, {0, 0}},  // disjoint
      {{10, 20}, {30, 5}, {0, 0}},                                   // touching
      {{0, 10}, {10, 0}, {0, 10}},  // empty range on the end: full length
      {{5, 10}, {15, 0}, {0, 15}},     {{5, 10}, {10, 0}, {10, 0}},  // empty range inside
      {{5, 0}, {0, 10}, {5, 0}},
  };
  for (const IntersectionCase& c : cases) {
    EXPECT_EQ(c.a.intersection(c.b), c.expected) << c.a << " with " << c.b;
  }
  EXPECT_EQ(Range<double>(10, 20).intersection(Range<double>(15, 100)), Range<double>(15, 15));
}

TEST(RangeTest, EndIsExclusiveAndEmptyRangeContainsNothing) {
  const Range<long long> range(10, 5);
  EXPECT_EQ(range.end(), 15);
  EXPECT_FALSE(range.contains(9));
  EXPECT_TRUE(range.contains(10));
  EXPECT_TRUE(range.contains(14));
  EXPECT_FALSE(range.contains(15));
  EXPECT_FALSE(Range<long long>(10, 0).contains(10));
  EXPECT_NE(range, Range<long long>(10, 6));
}

TEST(RangeTest, TextFormsThroughLexicalCast) {
  EXPECT_EQ(boost::lexical_cast<Range<long long>>("(1,2)"), Range<long long>(1, 2));
  EXPECT_EQ(boost::lexical_cast<Range<long long>>("{1;2}"), Range<long long>(1, 2));
  EXPECT_EQ(boost::lexical_cast<Range<double>>("(0.5,1e3)"), Range<double>(0.5, 1000));
  EXPECT_EQ(boost::lexical_cast<std::string>(Range<long long>(150, 30)), "(150,30)");
  for (const char* bad : {"(1, 2)", "(1,2) ", " (1,2)", "(1,2)x", "(1,", "(a,2)", ""}) {
    EXPECT_THROW(boost::lexical_cast<Range<long long>>(std::string(bad)), boost::bad_lexical_cast)
        << bad;
  }
}

TEST(RangeTest, StreamWithWhitespaceSkippingAcceptsBlanks) {
  std::istringstream in("(1, 2)");
  Range<long long> range;
  in >> range;
  EXPECT_TRUE(in);
  EXPECT_EQ(range, Range<long long>(1, 2));
}

TEST(RectTest, ReadsFieldsInOrderWithUncheckedSeparators) {
  EXPECT_EQ(boost::lexical_cast<Rect<float>>("(1.5,2,3,4)"), Rect<float>(1.5f, 2, 3, 4));
  EXPECT_EQ(boost::lexical_cast<Rect<int>>("[0;0;640;480]"), Rect<int>(0, 0, 640, 480));
  EXPECT_THROW(boost::lexical_cast<Rect<int>>("(0, 0,640,480)"), boost::bad_lexical_cast);
  EXPECT_THROW(boost::lexical_cast<Rect<int>>("(0,0,640)"), boost::bad_lexical_cast);
}

TEST(RectTest, FailedReadKeepsTheFieldsReadSoFar) {
  std::istringstream in("(7,8,x,4)");
  Rect<int> rect(1, 1, 1, 1);
  in >> rect;
  EXPECT_TRUE(in.fail());
  EXPECT_EQ(rect.x, 7);
  EXPECT_EQ(rect.y, 8);
  EXPECT_EQ(rect.height, 1);
}

}  // namespace
