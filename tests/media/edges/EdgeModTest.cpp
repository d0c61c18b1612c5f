#include "core/KelMediaLibException.h"
#include "media/edges/EdgeModification.h"
#include "media/edges/FadeInFunc.h"
#include "media/edges/FadeOutFunc.h"
#include "media/edges/MixerXSlideInFunc.h"
#include "media/edges/MixerXSlideOutFunc.h"
#include "media/edges/MixerYSlideInFunc.h"
#include "media/edges/MixerYSlideOutFunc.h"
#include "media/edges/RotateFunc.h"
#include "media/media/MediaTestSupport.h"
#include "media/media/VMFile.h"

#include <boost/make_shared.hpp>
#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <string>

using namespace KelMediaLib;

namespace {

using mediatest::xmlOf;

struct FunctionCase {
  std::string name;
  std::shared_ptr<EdgeModFunc> function;
  double value;
  double atStart, atHalf, atEnd;
};

TEST(EdgeModFuncTest, ValuesAtTheEndsAndTheMiddleOfTheEdge) {
  const FunctionCase cases[] = {
      {"fade in", std::make_shared<FadeInFunc>(), 10.0, 0.0, 5.0, 10.0},
      {"fade out", std::make_shared<FadeOutFunc>(), 10.0, 10.0, 5.0, 0.0},
      {"rotate twice", std::make_shared<RotateFunc>(2), 30.0, 30.0, 390.0, 750.0},
      {"rotate back", std::make_shared<RotateFunc>(-1), 0.0, 0.0, -180.0, -360.0},
      {"x slide in", std::make_shared<MixerXSlideInFunc>(640.0), 100.0, -540.0, -220.0, 100.0},
      {"x slide out", std::make_shared<MixerXSlideOutFunc>(640.0), 100.0, 100.0, 420.0, 740.0},
      {"y slide in", std::make_shared<MixerYSlideInFunc>(15.0, 480.0), 0.0, 480.0, 240.0, 0.0},
      {"y slide out", std::make_shared<MixerYSlideOutFunc>(480.0), 0.0, 0.0, -240.0, -480.0},
      {"slide in mixer units", std::make_shared<MixerXSlideInFunc>(), 0.0, -1.0, -0.5, 0.0},
  };
  for (const FunctionCase& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_DOUBLE_EQ(c.atStart, c.function->apply(c.value, 0.0));
    EXPECT_DOUBLE_EQ(c.atHalf, c.function->apply(c.value, 0.5));
    EXPECT_DOUBLE_EQ(c.atEnd, c.function->apply(c.value, 1.0));
    EXPECT_DOUBLE_EQ(c.atStart, c.function->apply(c.value, -3.0));
    EXPECT_DOUBLE_EQ(c.atEnd, c.function->apply(c.value, 7.0));
    EXPECT_THROW(c.function->apply(c.value, std::numeric_limits<double>::quiet_NaN()),
                 KelMediaLibException);
    const std::unique_ptr<EdgeModFunc> copy(c.function->clone());
    EXPECT_EQ(typeid(*c.function), typeid(*copy));
    EXPECT_DOUBLE_EQ(c.atHalf, copy->apply(c.value, 0.5));
  }
}

TEST(EdgeModFuncTest, ElementsOfTheFileFormat) {
  const RotateFunc rotate(3);
  const MixerYSlideInFunc slide(12.5);
  const std::pair<std::string, std::string> cases[] = {
      {xmlOf(FadeInFunc()), "<FadeInFunc/>\n"},
      {xmlOf(FadeOutFunc()), "<FadeOutFunc/>\n"},
      {xmlOf(MixerXSlideInFunc()), "<MixerXSlideIn/>\n"},
      {xmlOf(MixerXSlideOutFunc()), "<MixerXSlideOut/>\n"},
      {xmlOf(MixerYSlideOutFunc()), "<MixerYSlideOut/>\n"},
      {xmlOf(slide), "<MixerYSlideIn id=\"1\" angle=\"12.5\"/>\n"},
      {xmlOf(rotate), "<Rotate id=\"1\" numRotations=\"3\"/>\n"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(c.second, c.first);
  }
  const std::unique_ptr<RotateFunc> copy(rotate.clone());
  EXPECT_NE(rotate.xmlIdent(), copy->xmlIdent());
  EXPECT_EQ(3, copy->numRotations());
  EXPECT_THROW(MixerXSlideInFunc(-1.0), KelMediaLibException);
  MixerXSlideOutFunc out;
  EXPECT_THROW(out.setExtent(std::numeric_limits<double>::infinity()), KelMediaLibException);
  EXPECT_EQ(1.0, out.extent());
}

TEST(EdgeModificationTest, OwnsACopyOfItsFunctionAndWritesItsParameter) {
  mediatest::Project p;
  const auto media = VMFile::create(Range<long long>(0, 10), p.lock, p.source, 0);
  const RotateFunc rotate(1);
  const EdgeModification modification(media->opacity(), rotate);
  EXPECT_NE(&rotate, &modification.function());
  EXPECT_EQ(media->opacity(), modification.parameter());
  const EdgeModification copy(modification);
  EXPECT_NE(&modification.function(), &copy.function());
  EXPECT_EQ(360.0, copy.function().apply(0.0, 1.0));
  EXPECT_EQ("<EdgeMod parameter=\"1\">\n  <Rotate id=\"2\" numRotations=\"1\"/>\n</EdgeMod>\n",
            xmlOf(modification));
  EXPECT_EQ("<EdgeMod parameter=\"0\">\n  <FadeInFunc/>\n</EdgeMod>\n",
            xmlOf(EdgeModification(boost::shared_ptr<const Parameter<double>>(), FadeInFunc())));
}

TEST(EdgeModifiableTest, ListsAndLengthsOfBothEdges) {
  mediatest::Project p;
  const auto media = VMFile::create(Range<long long>(0, 10), p.lock, p.source, 0);
  const auto mod = [&] {
    return boost::make_shared<EdgeModification>(media->opacity(), FadeInFunc());
  };
  const auto a = mod(), b = mod(), c = mod();
  media->insertLeftEdgeModification(a, -1);
  media->insertLeftEdgeModification(b, 0);
  media->insertLeftEdgeModification(c, 2);
  EXPECT_EQ((std::vector<boost::shared_ptr<const EdgeModification>>{b, a, c}),
            media->leftEdgeModifications());
  EXPECT_TRUE(media->rightEdgeModifications().empty());
  EXPECT_EQ(a, media->removeLeftEdgeModification(1));
  EXPECT_EQ((std::vector<boost::shared_ptr<const EdgeModification>>{b, c}),
            media->leftEdgeModifications());

  mediatest::CountingObserver observer;
  media->attach(&observer);
  EXPECT_THROW(media->insertRightEdgeModification(a, 1), KelMediaLibException);
  EXPECT_THROW(media->insertRightEdgeModification(a, -2), KelMediaLibException);
  EXPECT_THROW(media->insertLeftEdgeModification(boost::shared_ptr<const EdgeModification>(), -1),
               KelMediaLibException);
  EXPECT_THROW(media->removeRightEdgeModification(0), KelMediaLibException);
  EXPECT_THROW(media->removeLeftEdgeModification(-1), KelMediaLibException);
  EXPECT_THROW(media->setLeftEdgeLength(-1), KelMediaLibException);
  EXPECT_EQ(0, observer.count);
  EXPECT_EQ(2u, media->leftEdgeModifications().size());
  EXPECT_EQ(0, media->leftEdgeLength());
  media->setRightEdgeLength(8);
  EXPECT_EQ(8, media->rightEdgeLength());
  EXPECT_EQ(0, media->leftEdgeLength());
  media->detach(&observer);
}

}  // namespace
