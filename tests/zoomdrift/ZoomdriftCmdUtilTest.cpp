// The engine's input gathered from a recording's metadata, and the
// arithmetic that turns a rectangle into crops, scale and translation.

#include "zoomdrift/ScreenProjectSupport.h"

#include "actions/OrvException.h"
#include "media/media/Transformer.h"
#include "values/VectorParam.h"
#include "zoomdrift/ZoomdriftCmdUtil.h"

#include <gtest/gtest.h>

#include <climits>

namespace zoomtest {
namespace {

using ZoomdriftNS::Params;
using ZoomdriftNS::ZoomdriftCmdUtil;

TEST(ZoomdriftCmdUtilTest, ParamsHoldTheMetadataInRecordingTime) {
  ScreenProject screen("params", 30, 900);
  screen.video->transformer()->scale()->at(0)->setKeyFrameValue(0, 0.5);
  screen.write("windows.dat", "1 10 20 300 200\n2 100 50 -40 30.5\n3 0.9 0.9 0.9 0.9\n");
  // The record at 0 isn't at rest: it is kept.
  screen.write("locations.dat", "0 5.7 6.2\n0.5 -3.9 700.1\n");
  screen.write("actions.dat", "1 5\n2 16\n3 15\n");
  screen.write("dirty.dat", "1 2 0 0 10 10 5 5 1 1\n2 0\n");
  screen.readFiles();

  Params params;
  ZoomdriftCmdUtil::genZoomdriftParams(screen.video, &params, 15);
  std::ostringstream scalars;
  scalars << params.targetWidth() << " " << params.targetHeight() << " " << params.timeScale()
          << " " << params.fadeDuration() << " " << params.clipStart() << " " << params.clipStop()
          << " " << params.isWindows() << " " << params.caretRects().size();
  EXPECT_EQ("640 720 30 15 0 900 0 0", scalars.str());
  EXPECT_EQ("0:whole", text(params.recordingRegions()));
  // The resting window at 0 gives nothing; a negative width swaps the edges;
  // edges are truncated corner by corner (0.9 + 0.9 reaches 1).
  EXPECT_EQ("30:{10,310,20,220} 60:{60,100,50,80} 90:{0,1,0,1}", text(params.foreWindows()));
  EXPECT_EQ("0:(5,6) 15:(-3,700)", text(params.cursorLocations()));
  // One record per bit among the lowest four: 5 gives 0 and 2, 16 none.
  EXPECT_EQ("30:0 30:2 90:0 90:1 90:2 90:3", text(params.cursorActions()));
  EXPECT_EQ("30:{0,10,0,10} 30:{5,6,5,6}", text(params.dirtyRects()));
}

TEST(ZoomdriftCmdUtilTest, TimesFollowTheProjectsRateAndTheMediasSpeed) {
  ScreenProject screen("rates", 60, 1200);
  screen.attach(Recording().params, 60);
  screen.video->setScalar(2.0);
  Params params;
  ZoomdriftCmdUtil::genZoomdriftParams(screen.video, &params, 15);
  EXPECT_EQ(60.0, params.timeScale());
  // 15 units of the media's own time are 7.5 of the recording: 8, away from 0.
  EXPECT_EQ(8, params.fadeDuration());
  EXPECT_TRUE(params.cursorLocations().empty());
  EXPECT_TRUE(params.foreWindows().empty());

  const std::pair<long long, long long> editOfRecording[] = {{0, 0}, {250, 500}, {-3, -6}};
  for (const auto& c : editOfRecording) {
    EXPECT_EQ(c.second, ZoomdriftCmdUtil::editTime(*screen.video, c.first));
    EXPECT_EQ(c.first, ZoomdriftCmdUtil::recordingTime(*screen.video, c.second));
  }
  screen.video->setScalar(1.5);
  EXPECT_EQ(5, ZoomdriftCmdUtil::editTime(*screen.video, 3));       // 4.5
  EXPECT_EQ(-5, ZoomdriftCmdUtil::editTime(*screen.video, -3));     // -4.5
  EXPECT_EQ(3, ZoomdriftCmdUtil::recordingTime(*screen.video, 4));  // 2.67
  EXPECT_THROW(ZoomdriftCmdUtil::editTime(*screen.video, LLONG_MAX), OrvMediaLib::OrvException);
}

TEST(ZoomdriftCmdUtilTest, ScaleAndTranslationMakeTheRectangleFillTheCanvas) {
  ScreenProject screen("scale");
  struct Case {
    Rectangle rect;
    float canvasWidth, canvasHeight;
    double scale, dx, dy;
  };
  const Case cases[] = {
      // The whole picture on a canvas of its size stays as it is.
      {kWhole, 1280, 720, 1, 0, 0},
      // Flipped top 360, centre (320, 540), the picture's (640, 360).
      {{0, 640, 0, 360}, 1280, 720, 2, 640, -360},
      // The narrower fit wins: 2 across, 4 down.
      {{100, 300, 50, 150}, 400, 400, 2, (640 - 200) * 2, (360 - 620) * 2},
      // Halves truncate: a 3 by 3 rectangle's centre is (1 + 1, 1 + 717).
      {{1, 4, 0, 3}, 300, 300, 100, (640 - 2) * 100, (360 - 718) * 100},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(::testing::Message() << c.rect);
    double scale[3], translation[3];
    ZoomdriftCmdUtil::calculateScaleTranslateWithRectangle(c.rect, c.canvasWidth, c.canvasHeight,
                                                           screen.video, scale, translation);
    EXPECT_EQ((std::vector<double>{c.scale, c.scale, 1}), std::vector<double>(scale, scale + 3));
    EXPECT_EQ((std::vector<double>{c.dx, c.dy, 0}),
              std::vector<double>(translation, translation + 3));
  }
  const ZD_TIME_RECT inner = {0, {10, 1280, 20, 700}};
  EXPECT_EQ(10, ZoomdriftCmdUtil::calcLeftTrim(inner, 1280, 720));
  EXPECT_EQ(20, ZoomdriftCmdUtil::calcTopTrim(inner, 1280, 720));
  EXPECT_EQ(0, ZoomdriftCmdUtil::calcRightTrim(inner, 1280, 720));
  EXPECT_EQ(20, ZoomdriftCmdUtil::calcBottomTrim(inner, 1280, 720));
}

}  // namespace
}  // namespace zoomtest
