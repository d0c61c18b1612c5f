#include "core/KelMediaLibException.h"
#include "media/edges/EdgeModification.h"
#include "media/edges/FadeInFunc.h"
#include "media/effects/GenericEffect.h"
#include "media/media/IMFile.h"
#include "media/media/VMFile.h"
#include "media/media/MediaTestSupport.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>
#include <string>
#include <vector>

using namespace KelMediaLib;

namespace {

typedef Range<long long> R;

struct MediaTimeTest : ::testing::Test {
  mediatest::Project project;

  // Shows (30,100) of the source's video track, placed at 10.
  boost::shared_ptr<VMFile> video(double scalar = 1.0) {
    const auto media = VMFile::create(R(30, 100), project.lock, project.source, 0);
    media->setStart(10);
    media->setScalar(scalar);
    return media;
  }
};

TEST_F(MediaTimeTest, AxesMapThroughTheScalar) {
  struct Case {
    double scalar;
    double parameterOf40, ownOf20, recordingOf3;
    long long localAt15;
  };
  for (const Case& c : {Case{1.0, 40.0, 20.0, 3.0, 35}, Case{2.0, 20.0, 40.0, 6.0, 65}}) {
    SCOPED_TRACE(c.scalar);
    const boost::shared_ptr<VMFile> media = video(c.scalar);
    EXPECT_EQ(R(10, static_cast<long long>(100 * c.scalar)), media->range());
    EXPECT_DOUBLE_EQ(c.parameterOf40, media->toParameterTime(40.0));
    EXPECT_DOUBLE_EQ(c.ownOf20, media->fromParameterTime(20.0));
    EXPECT_EQ(c.localAt15, media->toLocalTime(15));
    EXPECT_DOUBLE_EQ(c.recordingOf3, media->recordingToEditTime(3.0));
    EXPECT_DOUBLE_EQ(0.0, media->toParameterTime(0.0));
  }
}

TEST_F(MediaTimeTest, TrimsMoveTheSourceStretchByTheScaledDelta) {
  struct Case {
    double scalar;
    long long startDelta, endDelta;
    R range, mediaRange;
    long long trimStartSum;
  };
  const Case cases[] = {
      {1.0, 20, 10, R(30, 70), R(50, 70), 20},
      {2.0, 20, 10, R(30, 170), R(40, 85), 20},
      {1.0, -30, 0, R(-20, 130), R(0, 130), -30},
      {1.0, 0, -170, R(10, 270), R(30, 270), 0},
      // The source moves by llround(1.5) = 2 and the duration follows it.
      {2.0, 3, 0, R(13, 196), R(32, 98), 3},
      {0.7, 0, 3, R(10, 67), R(30, 96), 0},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(testing::Message() << c.scalar << " " << c.startDelta << " " << c.endDelta);
    const boost::shared_ptr<VMFile> media = video(c.scalar);
    media->trimStart(c.startDelta);
    media->trimEnd(c.endDelta);
    EXPECT_EQ(c.range, media->range());
    EXPECT_EQ(c.mediaRange, media->mediaTimeRange());
    EXPECT_EQ(c.trimStartSum, media->trimStartSum());
    EXPECT_EQ(Range<double>(static_cast<double>(c.mediaRange.start),
                            static_cast<double>(c.mediaRange.duration)),
              media->sourceRange());
  }
}

// Uneven trims and a change of speed, then their opposites in reverse: the
// media comes back exactly, and its duration always follows its source.
TEST_F(MediaTimeTest, TrimsAndScalarsUndoneByTheirOppositesRestoreTheMediaExactly) {
  for (const double scalar : {1.5, 0.7, 1.0 / 3.0, 2.37}) {
    SCOPED_TRACE(scalar);
    const boost::shared_ptr<VMFile> media = video(scalar);
    const R range = media->range();
    const R stretch = media->mediaTimeRange();
    media->trimStart(7);
    media->trimEnd(-11);
    media->setScalar(scalar * 1.618);
    media->trimStart(-3);
    EXPECT_EQ(std::llround(static_cast<double>(media->mediaTimeRange().duration) * media->scalar()),
              media->range().duration);
    media->trimStart(3);
    media->setScalar(scalar);
    media->trimEnd(11);
    media->trimStart(-7);
    EXPECT_EQ(range, media->range());
    EXPECT_EQ(stretch, media->mediaTimeRange());
    EXPECT_EQ(0, media->trimStartSum());
    EXPECT_EQ(scalar, media->scalar());
  }
}

TEST_F(MediaTimeTest, BadEditsThrowAndLeaveTheMediaUnchanged) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const double inf = std::numeric_limits<double>::infinity();
  const std::vector<std::pair<std::string, std::function<void(Media&)>>> edits = {
      {"source time before 0", [](Media& m) { m.trimStart(-31); }},
      {"negative duration by start trim", [](Media& m) { m.trimStart(101); }},
      {"past the source track's end", [](Media& m) { m.trimEnd(-171); }},
      {"negative duration by end trim", [](Media& m) { m.trimEnd(101); }},
      {"overflowing trim", [](Media& m) { m.trimStart(std::numeric_limits<long long>::min()); }},
      {"scale by 0", [](Media& m) { m.scale(0.0); }},
      {"scale by a negative", [](Media& m) { m.scale(-2.0); }},
      {"scale by NaN", [nan](Media& m) { m.scale(nan); }},
      {"infinite scalar", [inf](Media& m) { m.setScalar(inf); }},
      {"zero scalar", [](Media& m) { m.setScalar(0.0); }},
  };
  for (const auto& edit : edits) {
    SCOPED_TRACE(edit.first);
    const boost::shared_ptr<VMFile> media = video();
    mediatest::CountingObserver observer;
    media->attach(&observer);
    EXPECT_THROW(edit.second(*media), KelMediaLibException);
    EXPECT_EQ(R(10, 100), media->range());
    EXPECT_EQ(R(30, 100), media->mediaTimeRange());
    EXPECT_EQ(1.0, media->scalar());
    EXPECT_EQ(0, media->trimStartSum());
    EXPECT_EQ(0, observer.count);
    media->detach(&observer);
  }
}

TEST_F(MediaTimeTest, FileMediaMustFitTheirSourceWhenMade) {
  EXPECT_THROW(VMFile::create(R(-1, 10), project.lock, project.source, 0), KelMediaLibException);
  EXPECT_THROW(VMFile::create(R(250, 51), project.lock, project.source, 0), KelMediaLibException);
  EXPECT_THROW(VMFile::create(R(0, 10), project.lock, boost::shared_ptr<Source>(), 0),
               KelMediaLibException);
  EXPECT_NO_THROW(VMFile::create(R(250, 50), project.lock, project.source, 0));
  // A track the stats don't know has no end to keep to.
  EXPECT_NO_THROW(VMFile::create(R(0, 5000), project.lock, project.source, 7));
}

// Replaying its start trims gives a still its length back.
TEST_F(MediaTimeTest, StillMediaHaveNoSourceBounds) {
  const boost::shared_ptr<IMFile> image = IMFile::create(10, 50, project.lock, project.source, 0);
  image->trimEnd(-5);
  image->trimStart(5);
  EXPECT_EQ(R(5, 50), image->range());
  EXPECT_EQ(R(15, 50), image->mediaTimeRange());
  EXPECT_EQ(5, image->trimStartSum());
  const auto stretched = IMFile::create(10, 50, project.lock, project.source, 0);
  stretched->trimStart(-1000);
  EXPECT_EQ(R(-990, 1050), stretched->mediaTimeRange());
  stretched->trimEnd(-5000);
  EXPECT_EQ(6050, stretched->range().duration);
  EXPECT_THROW(stretched->trimEnd(6051), KelMediaLibException);
  EXPECT_EQ(6050, stretched->range().duration);
}

TEST_F(MediaTimeTest, ScaleAndScalarRoundTheDuration) {
  struct Case {
    std::function<void(Media&)> edit;
    double scalar;
    long long duration;
  };
  const Case cases[] = {
      {[](Media& m) { m.scale(1.5); }, 1.5, 150},
      {[](Media& m) {
         m.scale(1.5);
         m.scale(2.0);
       },
       3.0, 300},
      {[](Media& m) { m.setScalar(0.25); }, 0.25, 25},
      {[](Media& m) { m.setScalar(1.0 / 3.0); }, 1.0 / 3.0, 33},
      {[](Media& m) { m.setScalar(0.005); }, 0.005, 1},
      {[](Media& m) {
         m.setScalar(4.0);
         m.setScalar(1.0);
       },
       1.0, 100},
  };
  for (const Case& c : cases) {
    const boost::shared_ptr<VMFile> media = video();
    c.edit(*media);
    EXPECT_DOUBLE_EQ(c.scalar, media->scalar());
    EXPECT_EQ(R(10, c.duration), media->range());
    EXPECT_EQ(R(30, 100), media->mediaTimeRange());
  }
}

TEST_F(MediaTimeTest, EachChangeOfRangeEdgesOrEffectsNotifiesOnce) {
  const boost::shared_ptr<VMFile> media = video();
  const std::vector<std::pair<std::string, std::function<void()>>> edits = {
      {"setStart", [&] { media->setStart(40); }},
      {"trimStart", [&] { media->trimStart(2); }},
      {"trimEnd", [&] { media->trimEnd(2); }},
      {"scale", [&] { media->scale(2.0); }},
      {"setScalar", [&] { media->setScalar(1.0); }},
      {"left length", [&] { media->setLeftEdgeLength(5); }},
      {"right length", [&] { media->setRightEdgeLength(5); }},
      {"left insert",
       [&] {
         media->insertLeftEdgeModification(
             boost::make_shared<EdgeModification>(media->opacity(), FadeInFunc()), -1);
       }},
      {"right insert",
       [&] {
         media->insertRightEdgeModification(
             boost::make_shared<EdgeModification>(media->opacity(), FadeInFunc()), -1);
       }},
      {"left remove", [&] { media->removeLeftEdgeModification(0); }},
      {"right remove", [&] { media->removeRightEdgeModification(0); }},
      {"insert effect",
       [&] { media->insertEffect(GenericEffect::create("Blur", project.lock), -1); }},
      {"insert second effect",
       [&] { media->insertEffect(GenericEffect::create("DropShadow", project.lock), 0); }},
      {"swap effects", [&] { media->swapEffects(0, 1); }},
      {"remove effect", [&] { media->removeEffect(0); }},
  };
  for (const auto& edit : edits) {
    SCOPED_TRACE(edit.first);
    mediatest::CountingObserver observer;
    media->attach(&observer);
    edit.second();
    EXPECT_EQ(1, observer.count);
    media->detach(&observer);
  }
}

}  // namespace
