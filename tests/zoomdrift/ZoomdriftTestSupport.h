#pragma once

// Synthetic recordings for the zoom engine, written as small scripts, and
// records as text.
//
// A recording of 1280x720 pixels, 30 units a second, shown from 0 to 900
// (30 s), with a fade of 15 units; the target is 1280x720 too. With the
// engine's defaults that makes zoom rectangles of 640x360 with margins of 96
// and 54 pixels, a hold of 15 units (key frames at least 30 apart), an idle
// time of 90 units, rests of 15 to 75 units, typing windows of 30 units, a
// last second of 30 units and travel spans of 8 units.

#include "zoomdrift/Params.h"

#include <gtest/gtest.h>

#include <ostream>
#include <sstream>
#include <string>
#include <vector>

namespace ZoomdriftNS {

// The whole 1280x720 region prints as "whole".
inline std::ostream& operator<<(std::ostream& out, const Rectangle& r) {
  if (r.left == 0 && r.right == 1280 && r.top == 0 && r.bottom == 720) return out << "whole";
  return out << "{" << r.left << "," << r.right << "," << r.top << "," << r.bottom << "}";
}
inline std::ostream& operator<<(std::ostream& out, const ZD_TIME_RECT& k) {
  return out << k.time << ":" << k.rect;
}
inline std::ostream& operator<<(std::ostream& out, const ZD_MOUSE_LOCATION& l) {
  return out << l.time << ":(" << l.x << "," << l.y << ")";
}
inline std::ostream& operator<<(std::ostream& out, const ZD_MOUSE_ACTION& a) {
  return out << a.time << ":" << a.action;
}

}  // namespace ZoomdriftNS

namespace zoomtest {

using ZoomdriftNS::Rectangle;
using ZoomdriftNS::ZD_TIME_RECT;
typedef std::vector<ZD_TIME_RECT> KeyFrames;

const Rectangle kWhole = {0, 1280, 0, 720};

/// The records, separated by blanks.
template <class Record>
std::string text(const std::vector<Record>& records) {
  std::ostringstream out;
  for (const Record& record : records) out << (out.tellp() > 0 ? " " : "") << record;
  return out.str();
}

struct Recording {
  ZoomdriftNS::Params params;
  double zoom = 2.0;

  /// Steps separated by commas; times in units, one cursor location a unit:
  /// "move t0 x0 y0 t1 x1 y1" (linear, truncated), "stay t0 t1 x y",
  /// "click t...", "window t left right top bottom", "type t0 t1 every x y"
  /// (a character of 8x20 at (x + 8k, y) each `every` units), "change t0 t1
  /// every left right top bottom", "zoom z", "target width height", "clip
  /// start stop".
  explicit Recording(const std::string& script = "") {
    params.setTargetWidth(1280).setTargetHeight(720);
    params.setTimeScale(30.0);
    params.setFadeDuration(15);
    params.setClipInterval(0, 900);
    params.recordingRegions().push_back({0, kWhole});
    std::istringstream steps(script);
    for (std::string step; std::getline(steps, step, ',');) {
      std::istringstream in(step);
      std::string what;
      long long a = 0, b = 0, c = 0, d = 0, e = 0, f = 0, g = 0;
      in >> what;
      if (what == "click") {
        while (in >> a) params.cursorActions().push_back({a, 0});
        continue;
      }
      in >> a >> b >> c >> d >> e >> f >> g;
      if (what == "move") move(a, b, c, d, e, f);
      if (what == "stay") move(a, c, d, b, c, d);
      if (what == "window") params.foreWindows().push_back({a, rect(b, c, d, e)});
      for (long long t = a, k = 0; what == "type" && t <= b; t += c, ++k)
        params.dirtyRects().push_back({t, rect(d + 8 * k, d + 8 * k + 8, e, e + 20)});
      for (long long t = a; what == "change" && t <= b; t += c)
        params.dirtyRects().push_back({t, rect(d, e, f, g)});
      if (what == "zoom") zoom = static_cast<double>(a);
      if (what == "target")
        params.setTargetWidth(static_cast<int>(a)).setTargetHeight(static_cast<int>(b));
      if (what == "clip") params.setClipInterval(a, b);
    }
  }

  static Rectangle rect(long long left, long long right, long long top, long long bottom) {
    return {static_cast<int>(left), static_cast<int>(right), static_cast<int>(top),
            static_cast<int>(bottom)};
  }

  void move(long long t0, long long x0, long long y0, long long t1, long long x1, long long y1) {
    for (long long t = t0; t <= t1; ++t) {
      const long long d = t1 > t0 ? t1 - t0 : 1;
      params.cursorLocations().push_back({t, static_cast<int>(x0 + (x1 - x0) * (t - t0) / d),
                                          static_cast<int>(y0 + (y1 - y0) * (t - t0) / d)});
    }
  }
};

}  // namespace zoomtest
