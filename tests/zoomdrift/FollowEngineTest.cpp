// The reference engine on synthetic recordings whose key frames were worked
// out by hand from the rules in docs/design.md (ZoomdriftTestSupport.h gives
// the figures that the rules take on these recordings).

#include "zoomdrift/ZoomdriftTestSupport.h"

#include "zoomdrift/FollowEngine.h"
#include "zoomdrift/ZoomdriftException.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <functional>
#include <limits>
#include <string>

namespace zoomtest {
namespace {

using ZoomdriftNS::FollowEngine;

KeyFrames run(const Recording& recording) {
  FollowEngine::Settings settings;
  settings.zoom = recording.zoom;
  return *FollowEngine::create(settings)->calcZoomdriftKeyframes(recording.params, 0);
}

// The pointer arrives at (800, 500) at 60 and stays; a click at 70.
const std::string kClick = "move 0 100 100 60 800 500, stay 61 900 800 500, click 70";
// 4 pixels a unit right and 2 down from (200, 200) to (1000, 600); a click at 100.
const std::string kMoving = "move 0 200 200 200 1000 600, stay 201 900 1000 600, click 100";
// At (900, 300) from 99 (8 pixels away) on.
const std::string kRest = "move 0 100 100 100 900 300, stay 101 900 900 300, click ";
const std::string kLate = "stay 0 849 100 100, move 850 100 100 860 800 500, stay 861 900 800 500";

TEST(FollowEngineTest, ScenariosGiveTheKeyFramesOfTheRules) {
  const std::string scenarios[][3] = {
      {"a click: in on it, out after idle 90 and fade 15", kClick,
       "70:{480,1120,320,680} 175:whole"},
      // The cursor leaves the safe area's right edge (824) at 157: x alone
      // moves. Its bottom edge (526) at 164, but that pan waits for 157 + 30,
      // when the cursor is at (948, 574); no pan after 100 + 90.
      {"a click while moving, then pans on one axis at a time", kMoving,
       "100:{280,920,220,580} 157:{508,1148,220,580} 187:{508,1148,360,720} 217:whole"},
      {"a burst of clicks is one zoom",
       "move 0 100 100 150 700 400, move 151 705 400 170 800 400, stay 171 900 800 400,"
       "click 150 153 156 160 165",
       "150:{380,1020,220,580} 270:whole"},
      {"a rest of 6 units is none", kRest + "105", "105:{580,1220,120,480} 210:whole"},
      {"a rest of 15 units counts from its start", kRest + "114",
       "99:{580,1220,120,480} 219:whole"},
      {"a rest longer than 75 units counts from 75 before the click", kRest + "250",
       "175:{580,1220,120,480} 355:whole"},
      // Characters from (424, 300) to (584, 300) at 10 a second count from
      // the third on; small moves of the pointer in the safe area move nothing.
      {"typing after a click keeps the zoom: out after the typing, not at 157",
       "window 0 200 1100 100 650, move 0 100 100 50 400 300, stay 51 139 400 300, click 52,"
       "type 70 130 3 420 290, move 140 400 300 150 440 340, move 151 436 336 160 400 300,"
       "stay 161 900 400 300",
       "52:{80,720,120,480} 235:whole"},
      {"the last second (871 to 900) is ignored", kLate + ", click 871", ""},
      {"a click just before it counts; the way out would come after the end", kLate + ", click 870",
       "870:{480,1120,320,680}"},
      // The pointer flies between the windows and the view doesn't chase it;
      // each click over there is a jump (the rectangles don't overlap), the
      // typing that follows confirms the place, a gap after the way out.
      {"work in two distant windows in turn",
       "window 0 0 600 0 700, window 200 700 1280 0 700, window 400 0 600 0 700,"
       "window 600 700 1280 0 700, move 0 640 360 58 200 200, stay 59 189 200 200,"
       "move 190 200 200 198 1000 500, stay 199 389 1000 500, move 390 1000 500 398 200 200,"
       "stay 399 589 200 200, move 590 200 200 598 1000 500, stay 599 900 1000 500,"
       "click 60 200 400 600, type 70 130 3 220 190, type 210 270 3 1020 490,"
       "type 410 470 3 220 190, type 610 670 3 1020 490",
       "60:{0,640,20,380} 200:whole 230:{640,1280,320,680} 400:whole 430:{0,640,20,380} "
       "600:whole 630:{640,1280,320,680} 775:whole"},
      {"clicks alone in two distant windows: out at the first jump, and out it stays",
       "move 0 640 360 58 200 200, stay 59 79 200 200, move 80 200 200 88 1000 500,"
       "stay 89 109 1000 500, move 110 1000 500 118 200 200, stay 119 139 200 200,"
       "move 140 200 200 148 1000 500, stay 149 900 1000 500, click 60 90 120 150",
       "60:{0,640,20,380} 90:whole"},
      {"an idle recording with a caret blinking twice a second",
       "window 0 0 1280 0 720, stay 0 900 640 360, change 0 900 15 600 602 350 370", ""},
      {"a cursor that wanders without clicking",
       "move 0 100 100 225 1100 100, move 226 1100 100 450 1100 600,"
       "move 451 1100 600 675 100 600, move 676 100 600 900 100 100",
       ""},
      {"a zoom held at 4", kClick + ", zoom 8", "70:{640,960,410,590} 175:whole"},
      {"a zoom held at 1: the whole region, no key frame", kClick + ", zoom 0", ""},
      {"a square target", kClick + ", target 720 720", "70:{620,980,320,680} 175:whole"},
      {"no key frame before the clip's start and the fade", kClick + ", clip 60 900",
       "75:{480,1120,320,680} 175:whole"},
      {"a click before the clip", kClick + ", clip 80 900", ""},
      {"none after the clip's end", kClick + ", clip 0 170", "70:{480,1120,320,680}"},
  };
  for (const auto& s : scenarios) {
    SCOPED_TRACE(s[0]);
    EXPECT_EQ(s[2], text(run(Recording(s[1]))));
  }
}

TEST(FollowEngineTest, KeyFrameAtTimeIsTheOneInForceThen) {
  const Recording r(kMoving);
  const auto engine = FollowEngine::create();
  std::string answers;
  for (long long t : {0, 99, 100, 156, 157, 186, 187, 216, 217, 900}) {
    answers += text(*engine->calcZoomdriftKeyframeAtTime(r.params, t)) + " ";
  }
  EXPECT_EQ(
      "0:whole 99:whole 100:{280,920,220,580} 156:{280,920,220,580} 157:{508,1148,220,580} "
      "186:{508,1148,220,580} 187:{508,1148,360,720} 216:{508,1148,360,720} 217:whole "
      "900:whole ",
      answers);
}

TEST(FollowEngineTest, RefusesWhatItCannotUse) {
  using namespace ZoomdriftNS;
  const std::pair<void (*)(Params&), ZDERR_CODES> cases[] = {
      {[](Params& p) { p.recordingRegions().clear(); }, ZDERR_NO_RECORDING_REGION},
      {[](Params& p) {
         p.recordingRegions().push_back({5, {10, 10, 0, 720}});
       },
       ZDERR_NO_RECORDING_REGION},
      {[](Params& p) { p.setTargetWidth(0); }, ZDERR_EMPTY_TARGET_SIZE},
      {[](Params& p) { p.setTargetHeight(-720); }, ZDERR_EMPTY_TARGET_SIZE},
      {[](Params& p) { p.setTimeScale(0); }, ZDERR_BAD_TIME_SCALE},
      {[](Params& p) { p.setTimeScale(std::nan("")); }, ZDERR_BAD_TIME_SCALE},
      {[](Params& p) { p.setFadeDuration(-1); }, ZDERR_BAD_FADE_DURATION},
  };
  const auto engine = FollowEngine::create();
  for (const auto& c : cases) {
    Recording r;
    c.first(r.params);
    for (const std::function<void()>& call : std::vector<std::function<void()>>{
             [&] { engine->calcZoomdriftKeyframes(r.params, 0); },
             [&] { engine->calcZoomdriftKeyframeAtTime(r.params, 0); }}) {
      try {
        call();
        ADD_FAILURE() << "accepted, code " << c.second;
      } catch (const ZoomdriftException& e) {
        EXPECT_EQ(c.second, e.errorCode()) << e.what();
      }
    }
  }
  FollowEngine::Settings bad[4];
  bad[0].zoom = std::nan("");
  bad[1].idleSeconds = -1;
  bad[2].holdSeconds = std::numeric_limits<double>::infinity();
  bad[3].marginFraction = 0.5;
  for (const FollowEngine::Settings& settings : bad) {
    EXPECT_THROW(FollowEngine::create(settings), ZoomdriftException);
  }
}

TEST(FollowEngineTest, RecordsAtTheEndsOfTheirRangesDoNotBreakIt) {
  Recording r;
  r.params.setFadeDuration(LLONG_MAX);
  r.params.setClipInterval(LLONG_MIN, LLONG_MAX);
  r.params.recordingRegions() = {{LLONG_MIN, {INT_MIN, INT_MAX, INT_MIN, INT_MAX}}};
  r.params.setTargetWidth(INT_MAX);
  for (long long t : {LLONG_MIN, 0LL, LLONG_MAX - 1, LLONG_MAX}) {
    r.params.cursorLocations().push_back({t, INT_MAX, INT_MIN});
    r.params.cursorActions().push_back({t, 0});
    r.params.dirtyRects().push_back({t, {INT_MIN, INT_MIN + 1, 0, 1}});
    r.params.foreWindows().push_back({t, {INT_MIN, INT_MAX, INT_MIN, INT_MAX}});
  }
  for (const ZD_TIME_RECT& k : run(r)) {
    EXPECT_LE(k.rect.left, k.rect.right);
    EXPECT_LE(k.rect.top, k.rect.bottom);
  }
}

}  // namespace
}  // namespace zoomtest
