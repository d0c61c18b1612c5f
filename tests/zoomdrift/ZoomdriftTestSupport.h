#pragma once

// Synthetic recordings for the zoom engine, and comparisons of key frames.
//
// A recording of 1280x720 pixels, 30 units a second, shown from 0 to 900
// (30 s), with a fade of 15 units; the target is 1280x720 too. With the
// engine's defaults that makes zoom rectangles of 640x360 with margins of 96
// and 54 pixels, a hold of 15 units (key frames at least 30 apart), an idle
// time of 90 units, rests of 15 to 75 units, typing windows of 30 units and a
// last second of 30 units.

#include "zoomdrift/Params.h"

#include <gtest/gtest.h>

#include <ostream>
#include <vector>

namespace ZoomdriftNS {

inline bool operator==(const Rectangle& a, const Rectangle& b) {
  return a.left == b.left && a.right == b.right && a.top == b.top && a.bottom == b.bottom;
}

inline bool operator==(const ZD_TIME_RECT& a, const ZD_TIME_RECT& b) {
  return a.time == b.time && a.rect == b.rect;
}

inline bool operator==(const ZD_MOUSE_ACTION& a, const ZD_MOUSE_ACTION& b) {
  return a.time == b.time && a.action == b.action;
}

inline bool operator==(const ZD_MOUSE_LOCATION& a, const ZD_MOUSE_LOCATION& b) {
  return a.time == b.time && a.x == b.x && a.y == b.y;
}

inline std::ostream& operator<<(std::ostream& out, const ZD_MOUSE_ACTION& a) {
  return out << a.time << ":" << a.action;
}

inline std::ostream& operator<<(std::ostream& out, const ZD_MOUSE_LOCATION& l) {
  return out << l.time << ":(" << l.x << "," << l.y << ")";
}

inline std::ostream& operator<<(std::ostream& out, const Rectangle& r) {
  return out << "{" << r.left << "," << r.right << "," << r.top << "," << r.bottom << "}";
}

inline std::ostream& operator<<(std::ostream& out, const ZD_TIME_RECT& k) {
  return out << k.time << ":" << k.rect;
}

}  // namespace ZoomdriftNS

namespace zoomtest {

using ZoomdriftNS::Rectangle;
using ZoomdriftNS::ZD_TIME_RECT;
typedef std::vector<ZD_TIME_RECT> KeyFrames;

const Rectangle kWhole = {0, 1280, 0, 720};

struct Recording {
  ZoomdriftNS::Params params;

  Recording() {
    params.setTargetWidth(1280).setTargetHeight(720);
    params.setTimeScale(30.0);
    params.setFadeDuration(15);
    params.setClipInterval(0, 900);
    params.recordingRegions().push_back({0, kWhole});
  }

  /// The cursor from (x0, y0) at t0 to (x1, y1) at t1, one location a unit.
  Recording& move(long long t0, int x0, int y0, long long t1, int x1, int y1) {
    for (long long t = t0; t <= t1; ++t) {
      const long long d = t1 - t0 ? t1 - t0 : 1;
      params.cursorLocations().push_back({t, static_cast<int>(x0 + (x1 - x0) * (t - t0) / d),
                                          static_cast<int>(y0 + (y1 - y0) * (t - t0) / d)});
    }
    return *this;
  }
  Recording& stay(long long t0, long long t1, int x, int y) { return move(t0, x, y, t1, x, y); }
  Recording& click(long long t) {
    params.cursorActions().push_back({t, 0});
    return *this;
  }
  /// A character of 8x20 at (x + 8k, y) each `every` units from t0 to t1.
  Recording& type(long long t0, long long t1, long long every, int x, int y) {
    for (long long t = t0, k = 0; t <= t1; t += every, ++k) {
      const int left = static_cast<int>(x + 8 * k);
      params.dirtyRects().push_back({t, {left, left + 8, y, y + 20}});
    }
    return *this;
  }
  Recording& window(long long t, Rectangle r) {
    params.foreWindows().push_back({t, r});
    return *this;
  }
};

}  // namespace zoomtest
