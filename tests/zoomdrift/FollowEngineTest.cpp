// The reference engine on synthetic recordings whose key frames were worked
// out by hand from the rules in docs/design.md (see ZoomdriftTestSupport.h
// for the figures that the rules give on these recordings).

#include "zoomdrift/ZoomdriftTestSupport.h"

#include "zoomdrift/FollowEngine.h"
#include "zoomdrift/ZoomdriftException.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <limits>
#include <string>

namespace zoomtest {
namespace {

using ZoomdriftNS::FollowEngine;
using ZoomdriftNS::ZoomdriftException;

KeyFrames run(const Recording& recording,
              const FollowEngine::Settings& settings = FollowEngine::Settings()) {
  return *FollowEngine::create(settings)->calcZoomdriftKeyframes(recording.params, 0);
}

TEST(FollowEngineTest, SingleClickZoomsOnItThenBackAfterTheIdleTime) {
  Recording r;
  r.move(0, 100, 100, 60, 800, 500).stay(61, 900, 800, 500).click(70);
  // Centred on (800, 500); out at 70 + idle 90 + fade 15.
  EXPECT_EQ((KeyFrames{{70, {480, 1120, 320, 680}}, {175, kWhole}}), run(r));
}

TEST(FollowEngineTest, ClickWhileMovingZoomsThereAndThePanFollowsOneAxisAtATime) {
  Recording r;
  // 4 pixels a unit to the right, 2 down: at the click (600, 400).
  r.move(0, 200, 200, 200, 1000, 600).stay(201, 900, 1000, 600).click(100);
  // The cursor leaves the safe area's right edge (824) at 157: only x moves.
  // Its bottom edge (526) at 164, but the next key frame waits for 157 + 30;
  // at 187 the cursor is at (948, 574) and the rectangle stops at the
  // region's bottom. No pan after 100 + 90; out at 187 + 30.
  EXPECT_EQ((KeyFrames{{100, {280, 920, 220, 580}},
                       {157, {508, 1148, 220, 580}},
                       {187, {508, 1148, 360, 720}},
                       {217, kWhole}}),
            run(r));
}

TEST(FollowEngineTest, BurstOfClicksIsOneZoom) {
  Recording r;
  r.move(0, 100, 100, 150, 700, 400).move(151, 705, 400, 170, 800, 400).stay(171, 900, 800, 400);
  for (long long t : {150, 153, 156, 160, 165}) r.click(t);
  EXPECT_EQ((KeyFrames{{150, {380, 1020, 220, 580}}, {270, kWhole}}), run(r));
}

TEST(FollowEngineTest, RestBeforeAClickCountsFromItsStart) {
  // The pointer arrives near (900, 300) at 99 (8 pixels away) and rests.
  struct Case {
    long long click, zoomAt;
  };
  const Case cases[] = {
      {105, 105},  // a rest of 6 units is too short
      {114, 99},   // 15 units: from the rest's start
      {160, 99},
      {250, 175},  // longer than 75 units: from 75 before the click
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.click);
    Recording r;
    r.move(0, 100, 100, 100, 900, 300).stay(101, 900, 900, 300).click(c.click);
    EXPECT_EQ((KeyFrames{{c.zoomAt, {580, 1220, 120, 480}}, {c.click + 105, kWhole}}), run(r));
  }
}

TEST(FollowEngineTest, TypingAfterAClickKeepsTheZoomWhereItIs) {
  Recording r;
  r.window(0, {200, 1100, 100, 650});
  r.move(0, 100, 100, 50, 400, 300).stay(51, 139, 400, 300).click(52);
  // Characters from (424, 300) to (584, 300), 10 a second: typing from the
  // third on, all inside the safe area.
  r.type(70, 130, 3, 420, 290);
  // Small moves of the pointer inside the safe area move nothing.
  r.move(140, 400, 300, 150, 440, 340).move(151, 436, 336, 160, 400, 300).stay(161, 900, 400, 300);
  // Out 105 after the last character, not after the click (157).
  EXPECT_EQ((KeyFrames{{52, {80, 720, 120, 480}}, {235, kWhole}}), run(r));
}

TEST(FollowEngineTest, TheClickThatStopsTheRecordingIsIgnored) {
  for (long long click : {870LL, 871LL}) {
    SCOPED_TRACE(click);
    Recording r;
    r.stay(0, 849, 100, 100).move(850, 100, 100, 860, 800, 500).stay(861, 900, 800, 500);
    r.click(click);
    // The last second is 871 to 900; the zoom out would come after the end.
    EXPECT_EQ((click == 870 ? KeyFrames{{870, {480, 1120, 320, 680}}} : KeyFrames()), run(r));
  }
}

TEST(FollowEngineTest, WorkInTwoDistantWindowsZoomsOutAtEachJumpAndInWhenWorkResumes) {
  Recording r;
  r.window(0, {0, 600, 0, 700}).window(200, {700, 1280, 0, 700});
  r.window(400, {0, 600, 0, 700}).window(600, {700, 1280, 0, 700});
  r.move(0, 640, 360, 58, 200, 200).stay(59, 189, 200, 200);
  r.move(190, 200, 200, 198, 1000, 500).stay(199, 389, 1000, 500);
  r.move(390, 1000, 500, 398, 200, 200).stay(399, 589, 200, 200);
  r.move(590, 200, 200, 598, 1000, 500).stay(599, 900, 1000, 500);
  r.click(60).click(200).click(400).click(600);
  r.type(70, 130, 3, 220, 190).type(210, 270, 3, 1020, 490);
  r.type(410, 470, 3, 220, 190).type(610, 670, 3, 1020, 490);
  const Rectangle left = {0, 640, 20, 380}, right = {640, 1280, 320, 680};
  // The pointer flies between the windows: the view doesn't chase it. Each
  // click over there is a jump (the rectangles don't overlap); the typing
  // that follows confirms the place, one gap after the zoom out.
  EXPECT_EQ((KeyFrames{{60, left},
                       {200, kWhole},
                       {230, right},
                       {400, kWhole},
                       {430, left},
                       {600, kWhole},
                       {630, right},
                       {775, kWhole}}),
            run(r));
  // Clicks alone never confirm a place the next click leaves: out after the
  // first jump, and out it stays.
  Recording quick;
  quick.move(0, 640, 360, 58, 200, 200).stay(59, 79, 200, 200);
  quick.move(80, 200, 200, 88, 1000, 500).stay(89, 109, 1000, 500);
  quick.move(110, 1000, 500, 118, 200, 200).stay(119, 139, 200, 200);
  quick.move(140, 200, 200, 148, 1000, 500).stay(149, 900, 1000, 500);
  for (long long t : {60, 90, 120, 150}) quick.click(t);
  EXPECT_EQ((KeyFrames{{60, left}, {90, kWhole}}), run(quick));
}

TEST(FollowEngineTest, NoActivityNoZoom) {
  Recording idle;
  idle.window(0, {0, 1280, 0, 720}).stay(0, 900, 640, 360);
  // A caret blinking twice a second is no typing.
  for (long long t = 0; t <= 900; t += 15) idle.params.dirtyRects().push_back({t, {600, 602, 350, 370}});
  EXPECT_EQ(KeyFrames(), run(idle));

  Recording wandering;
  wandering.move(0, 100, 100, 225, 1100, 100).move(226, 1100, 100, 450, 1100, 600);
  wandering.move(451, 1100, 600, 675, 100, 600).move(676, 100, 600, 900, 100, 100);
  EXPECT_EQ(KeyFrames(), run(wandering));
}

TEST(FollowEngineTest, KeyFrameAtTimeIsTheOneInForceThen) {
  Recording r;
  r.move(0, 200, 200, 200, 1000, 600).stay(201, 900, 1000, 600).click(100);
  const auto engine = FollowEngine::create();
  const Rectangle first = {280, 920, 220, 580}, second = {508, 1148, 220, 580},
                  third = {508, 1148, 360, 720};
  const std::pair<long long, Rectangle> cases[] = {
      {0, kWhole},   {99, kWhole},   {100, first},  {156, first},  {157, second},
      {186, second}, {187, third},   {216, third},  {217, kWhole}, {900, kWhole}};
  for (const auto& c : cases) {
    const auto answer = engine->calcZoomdriftKeyframeAtTime(r.params, c.first);
    ASSERT_EQ(1u, answer->size());
    EXPECT_EQ((ZD_TIME_RECT{c.first, c.second}), answer->front());
  }
}

TEST(FollowEngineTest, ZoomAspectClipAndSettingsShapeTheKeyFrames) {
  struct Case {
    const char* what;
    double zoom;
    int targetWidth, targetHeight;
    long long clipStart, clipStop, click;
    KeyFrames expected;
  };
  const Case cases[] = {
      {"zoom held at 4", 8.0, 1280, 720, 0, 900, 70, {{70, {640, 960, 410, 590}}, {175, kWhole}}},
      {"zoom held at 1: the whole region, no key frame", 0.5, 1280, 720, 0, 900, 70, {}},
      {"square target", 2.0, 720, 720, 0, 900, 70, {{70, {620, 980, 320, 680}}, {175, kWhole}}},
      {"fade from the clip's start", 2.0, 1280, 720, 60, 900, 70,
       {{75, {480, 1120, 320, 680}}, {175, kWhole}}},
      {"click before the clip", 2.0, 1280, 720, 80, 900, 70, {}},
      {"out after the clip's end", 2.0, 1280, 720, 0, 170, 70, {{70, {480, 1120, 320, 680}}}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    Recording r;
    r.move(0, 100, 100, 60, 800, 500).stay(61, 900, 800, 500).click(c.click);
    r.params.setTargetWidth(c.targetWidth).setTargetHeight(c.targetHeight);
    r.params.setClipInterval(c.clipStart, c.clipStop);
    FollowEngine::Settings settings;
    settings.zoom = c.zoom;
    EXPECT_EQ(c.expected, run(r, settings));
  }
  FollowEngine::Settings settings;
  settings.zoom = 9;
  EXPECT_EQ(4.0, FollowEngine::create(settings)->settings().zoom);
}

TEST(FollowEngineTest, RefusesWhatItCannotUse) {
  using namespace ZoomdriftNS;
  struct Case {
    void (*spoil)(Params&);
    ZDERR_CODES code;
  };
  const Case cases[] = {
      {[](Params& p) { p.recordingRegions().clear(); }, ZDERR_NO_RECORDING_REGION},
      {[](Params& p) { p.recordingRegions().push_back({5, {10, 10, 0, 720}}); },
       ZDERR_NO_RECORDING_REGION},
      {[](Params& p) { p.setTargetWidth(0); }, ZDERR_EMPTY_TARGET_SIZE},
      {[](Params& p) { p.setTargetHeight(-720); }, ZDERR_EMPTY_TARGET_SIZE},
      {[](Params& p) { p.setTimeScale(0); }, ZDERR_BAD_TIME_SCALE},
      {[](Params& p) { p.setTimeScale(std::nan("")); }, ZDERR_BAD_TIME_SCALE},
      {[](Params& p) { p.setFadeDuration(-1); }, ZDERR_BAD_FADE_DURATION},
  };
  const auto engine = FollowEngine::create();
  for (const Case& c : cases) {
    Recording r;
    c.spoil(r.params);
    for (int atTime = 0; atTime < 2; ++atTime) {
      try {
        if (atTime) {
          engine->calcZoomdriftKeyframeAtTime(r.params, 0);
        } else {
          engine->calcZoomdriftKeyframes(r.params, 0);
        }
        ADD_FAILURE() << "accepted, code " << c.code;
      } catch (const ZoomdriftException& e) {
        EXPECT_EQ(c.code, e.errorCode()) << e.what();
        EXPECT_EQ(0u, std::string(e.what()).find("zoomdrift: ")) << e.what();
      }
    }
  }
  FollowEngine::Settings bad[4];
  bad[0].zoom = std::nan("");
  bad[1].idleSeconds = -1;
  bad[2].holdSeconds = std::numeric_limits<double>::infinity();
  bad[3].marginFraction = 0.5;
  for (const FollowEngine::Settings& settings : bad) {
    try {
      FollowEngine::create(settings);
      ADD_FAILURE() << "accepted";
    } catch (const ZoomdriftException& e) {
      EXPECT_EQ(ZDERR_BAD_SETTING, e.errorCode()) << e.what();
    }
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
  const KeyFrames keyFrames = run(r);
  for (const ZD_TIME_RECT& k : keyFrames) {
    EXPECT_LE(k.rect.left, k.rect.right);
    EXPECT_LE(k.rect.top, k.rect.bottom);
  }
}

}  // namespace
}  // namespace zoomtest
