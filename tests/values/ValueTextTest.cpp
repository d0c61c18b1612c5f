#include "values/AudioPosition.h"
#include "values/Color.h"
#include "values/Point.h"
#include "values/Range.h"
#include "values/Rect.h"
#include "values/TransformMatrix.h"

#include <gtest/gtest.h>

#include <boost/lexical_cast.hpp>

#include <limits>
#include <sstream>
#include <string>
#include <vector>

using namespace KelMediaLib;

namespace {

// Written forms must survive an XML attribute and read back to the same bits.
template <class T>
void expectRoundTrip(const T& value) {
  const std::string text = boost::lexical_cast<std::string>(value);
  EXPECT_EQ(text.find_first_of(" \t\n\"'<>&"), std::string::npos) << text;
  EXPECT_EQ(boost::lexical_cast<T>(text), value) << text;
  std::ostringstream xml;
  writeXMLValue(xml, value);
  EXPECT_EQ(xml.str(), text);
}

TEST(ValueTextTest, AwkwardNumbersRoundTrip) {
  const double tiny = std::numeric_limits<double>::denorm_min();
  expectRoundTrip(Point(0.1, 1e-300, -1.0 / 3));
  expectRoundTrip(Point(tiny, std::numeric_limits<double>::max(), -0.0));
  expectRoundTrip(Color(0.1f, 1.0f / 3, 1e-30f, 1));
  expectRoundTrip(AudioPosition(-0.1, 2.0 / 3));
  TransformMatrix matrix;
  for (int i = 0; i < 16; ++i) {
    matrix.m[i / 4][i % 4] = 0.1 * i - 1e-300;
  }
  expectRoundTrip(matrix);
  expectRoundTrip(Range<double>(0.1, 1e-300));
  expectRoundTrip(Rect<double>(0.1, -2.5, 1e-300, 3));
  expectRoundTrip(std::vector<Rect<float>>());
  expectRoundTrip(std::vector<Rect<float>>{Rect<float>(0.1f, 2, 3, 4)});
  expectRoundTrip(
      std::vector<Rect<float>>{Rect<float>(0.1f, 2, 3, 4), Rect<float>(-1, 0, 1e-20f, 5)});
}

TEST(ValueTextTest, WrittenForms) {
  const auto text = [](const auto& value) { return boost::lexical_cast<std::string>(value); };
  EXPECT_EQ(text(Point(1, 2.5, -3)), "(1,2.5,-3)");
  EXPECT_EQ(text(Color(1, 0.5f, 0, 1)), "(1,0.5,0,1)");
  EXPECT_EQ(text(AudioPosition(-1, 0.25)), "(-1,0.25)");
  EXPECT_EQ(text(TransformMatrix::identity()), "(1,0,0,0,0,1,0,0,0,0,1,0,0,0,0,1)");
  EXPECT_EQ(text(Rect<double>(0.1, -2.5, 1e-300, 3)), "(0.1,-2.5,1e-300,3)");
  EXPECT_EQ(text(std::vector<Rect<float>>()), "[]");
  EXPECT_EQ(text(std::vector<Rect<float>>{Rect<float>(1, 2, 3, 4), Rect<float>(5, 6, 7, 8)}),
            "[(1,2,3,4),(5,6,7,8)]");
}

TEST(ValueTextTest, MalformedFormsAreRejected) {
  for (const char* bad : {"(1, 2,3)", "(1,2,3) ", "(1,2)", "(1,2,3,4)", "[1,2,3]", "(1;2;3)",
                          "1,2,3", "(1,2,x)", ""}) {
    EXPECT_THROW(boost::lexical_cast<Point>(std::string(bad)), boost::bad_lexical_cast) << bad;
  }
  EXPECT_THROW(boost::lexical_cast<Color>("(1,2,3)"), boost::bad_lexical_cast);
  EXPECT_THROW(boost::lexical_cast<AudioPosition>("(1,2,3)"), boost::bad_lexical_cast);
  EXPECT_THROW(boost::lexical_cast<TransformMatrix>("(1,0,0,0)"), boost::bad_lexical_cast);
  for (const char* bad :
       {"[", "[(1,2,3,4)", "[(1,2,3,4);(1,2,3,4)]", "[(1,2,3,4),]", "[(1,2,3,4)] ", "(1,2,3,4)"}) {
    EXPECT_THROW(boost::lexical_cast<std::vector<Rect<float>>>(std::string(bad)),
                 boost::bad_lexical_cast)
        << bad;
  }
}

TEST(ValueTextTest, FailedReadLeavesTheValueUnchanged) {
  Point point(7, 8, 9);
  std::istringstream in("(1,2,oops)");
  in >> point;
  EXPECT_TRUE(in.fail());
  EXPECT_EQ(point, Point(7, 8, 9));
}

TEST(ValueArithmeticTest, ComponentWiseScalingAndSum) {
  EXPECT_EQ(Point(1, 2, 3) * 2 + Point(0.5, 0, -1), Point(2.5, 4, 5));
  EXPECT_EQ(Color(0.5f, 1, 0, 0.25f) * 2 + Color(0, 0, 1, 0), Color(1, 2, 1, 0.5f));
  EXPECT_EQ(AudioPosition(-1, 0.5) * 0.5 + AudioPosition(1, 1), AudioPosition(0.5, 1.25));
}

TEST(ValueArithmeticTest, MatrixProductAppliesRightOperandFirst) {
  TransformMatrix translate;
  translate.m[0][3] = 5;
  TransformMatrix scale;
  scale.m[0][0] = 2;
  // x -> 2x + 5 when scaling first, 2(x + 5) when translating first.
  EXPECT_EQ((translate * scale).m[0][3], 5);
  EXPECT_EQ((scale * translate).m[0][3], 10);
  EXPECT_EQ(scale * TransformMatrix::identity(), scale);
  EXPECT_NE(scale * translate, translate * scale);
}

}  // namespace
