#include "zoomdrift/FollowEngine.h"

#include "zoomdrift/ZoomdriftException.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <cstdlib>
#include <string>
#include <utility>

namespace ZoomdriftNS {

namespace {

// Fixed rules; docs/design.md gives the reasons.
const double kTypingWindowSeconds = 1.0;
const int kTypingMinTimes = 3;
const double kRestMinSeconds = 0.5;
const double kRestMaxSeconds = 2.5;
const long long kRestRadius = 8;
const double kStopClickSeconds = 1.0;
const double kTravelSeconds = 0.25;

long long plus(long long a, long long b) {
  long long sum = 0;
  return __builtin_add_overflow(a, b, &sum) ? (b > 0 ? LLONG_MAX : LLONG_MIN) : sum;
}

long long minus(long long a, long long b) {
  long long difference = 0;
  return __builtin_sub_overflow(a, b, &difference) ? (b < 0 ? LLONG_MAX : LLONG_MIN) : difference;
}

// Seconds as recording time units: the nearest unit, ties away from zero.
// The one conversion of the engine's durations.
long long recordingUnits(double seconds, double timeScale) {
  const double units = seconds * timeScale;
  return units >= 9.2e18 ? LLONG_MAX : std::llround(units);
}

long long width(const Rectangle& r) {
  return static_cast<long long>(r.right) - r.left;
}
long long height(const Rectangle& r) {
  return static_cast<long long>(r.bottom) - r.top;
}

bool operator==(const Rectangle& a, const Rectangle& b) {
  return a.left == b.left && a.right == b.right && a.top == b.top && a.bottom == b.bottom;
}

bool overlap(const Rectangle& a, const Rectangle& b) {
  return a.left < b.right && b.left < a.right && a.top < b.bottom && b.top < a.bottom;
}

// Points on an edge count as inside.
bool contains(const Rectangle& r, long long x, long long y) {
  return r.left <= x && x <= r.right && r.top <= y && y <= r.bottom;
}

struct Point {
  long long x;
  long long y;
};

struct Size {
  long long w;
  long long h;
};

Point centre(const Rectangle& r) {
  return {(static_cast<long long>(r.left) + r.right) / 2,
          (static_cast<long long>(r.top) + r.bottom) / 2};
}

// One of the user's acts, where it happened.
struct Activity {
  long long time;
  Point at;
};

template <class Record>
std::vector<Record> sortedByTime(const std::vector<Record>& records) {
  std::vector<Record> sorted(records);
  const auto earlier = [](const Record& a, const Record& b) { return a.time < b.time; };
  if (!std::is_sorted(sorted.begin(), sorted.end(), earlier)) {
    std::stable_sort(sorted.begin(), sorted.end(), earlier);
  }
  return sorted;
}

// The index of the last record at or before `time`; -1 if there is none.
template <class Record>
long lastAtOrBefore(const std::vector<Record>& records, long long time) {
  const auto after = std::upper_bound(records.begin(), records.end(), time,
                                      [](long long t, const Record& r) { return t < r.time; });
  return static_cast<long>(after - records.begin()) - 1;
}

void check(bool ok, const std::string& message, ZDERR_CODES code) {
  if (!ok) throw ZoomdriftException(message, code);
}

void checkParams(const Params& params) {
  check(params.recordingRegions().size() > 0, "zoomdrift: no recording region",
        ZDERR_NO_RECORDING_REGION);
  for (const ZD_TIME_RECT& region : params.recordingRegions()) {
    check(width(region.rect) > 0 && height(region.rect) > 0,
          "zoomdrift: the recording region at time " + std::to_string(region.time) + " has no area",
          ZDERR_NO_RECORDING_REGION);
  }
  check(params.targetWidth() > 0 && params.targetHeight() > 0,
        "zoomdrift: the target size " + std::to_string(params.targetWidth()) + "x" +
            std::to_string(params.targetHeight()) + " is empty",
        ZDERR_EMPTY_TARGET_SIZE);
  check(std::isfinite(params.timeScale()) && params.timeScale() > 0,
        "zoomdrift: the time scale must be a number of units a second above 0, not " +
            std::to_string(params.timeScale()),
        ZDERR_BAD_TIME_SCALE);
  check(params.fadeDuration() >= 0,
        "zoomdrift: the fade duration " + std::to_string(params.fadeDuration()) + " is negative",
        ZDERR_BAD_FADE_DURATION);
}

// One computation of the key frames of a recording.
//
// The activities are gathered first: clicks, the rests of the pointer before
// them, typing, changes of the front window. Then one walk through them and
// the cursor's locations, in time order, drives a view that is either the
// whole region, zoomed on a rectangle, or the whole region after a jump,
// waiting for the activity to settle.
class FollowRun {
 public:
  FollowRun(const Params& params, const FollowEngine::Settings& settings)
      : targetWidth_(params.targetWidth()),
        targetHeight_(params.targetHeight()),
        zoom_(settings.zoom),
        margin_(settings.marginFraction),
        fade_(params.fadeDuration()),
        gap_(plus(params.fadeDuration(),
                  std::max(1LL, recordingUnits(settings.holdSeconds, params.timeScale())))),
        idle_(recordingUnits(settings.idleSeconds, params.timeScale())),
        travel_(recordingUnits(kTravelSeconds, params.timeScale())),
        regions_(sortedByTime(params.recordingRegions())),
        windows_(sortedByTime(params.foreWindows())),
        locations_(sortedByTime(params.cursorLocations())) {
    const double scale = params.timeScale();
    for (const ZD_TIME_RECT& region : regions_) sizes_.push_back(zoomSize(region.rect));
    const std::vector<ZD_MOUSE_ACTION> actions = sortedByTime(params.cursorActions());
    const std::vector<ZD_TIME_RECT> dirty = sortedByTime(params.dirtyRects());

    long long end = LLONG_MIN;
    for (const ZD_MOUSE_LOCATION& r : locations_) end = std::max(end, r.time);
    for (const ZD_MOUSE_ACTION& r : actions) end = std::max(end, r.time);
    for (const ZD_TIME_RECT& r : dirty) end = std::max(end, r.time);
    for (const ZD_TIME_RECT& r : windows_) end = std::max(end, r.time);
    const bool clipped = params.clipStop() > params.clipStart();
    if (clipped) end = std::max(end, params.clipStop());
    begin_ = clipped ? params.clipStart() : 0;
    limit_ = clipped ? params.clipStop() : end;
    // The click that stops the recording, and whatever else happens in its
    // last second, would give a zoom that nobody sees.
    lastActivity_ = std::min(limit_, minus(end, recordingUnits(kStopClickSeconds, scale)));

    addClicks(actions, scale);
    addWindowChanges();
    addTyping(dirty, scale);
    std::stable_sort(activities_.begin(), activities_.end(),
                     [](const Activity& a, const Activity& b) { return a.time < b.time; });
  }

  std::vector<ZD_TIME_RECT> keyFrames() {
    std::size_t next = 0;
    for (const ZD_MOUSE_LOCATION& location : locations_) {
      if (location.time > limit_) break;
      for (; next < activities_.size() && activities_[next].time <= location.time; ++next) {
        beforeMoment(activities_[next].time);
        act(activities_[next]);
      }
      beforeMoment(location.time);
      // A pointer at rest never moves the view: while the user types, the
      // view follows the text, not the parked pointer.
      const bool moved = !hasCursor_ || location.x != cursor_.x || location.y != cursor_.y;
      cursor_ = {location.x, location.y};
      hasCursor_ = true;
      if (moved) tryPan(location.time);
    }
    for (; next < activities_.size(); ++next) {
      beforeMoment(activities_[next].time);
      act(activities_[next]);
    }
    if (panWaiting_ && earliest() <= limit_) tryPan(earliest());
    if (mode_ == ZOOMED) zoomOut(std::max(plus(plus(lastAct_, idle_), fade_), earliest()));
    while (!keyFrames_.empty() && keyFrames_.back().time > limit_) keyFrames_.pop_back();
    return keyFrames_;
  }

  /// The region in force at `time`: the last that starts at or before it.
  const Rectangle& regionAt(long long time) const { return regions_[regionIndex(time)].rect; }

 private:
  enum Mode { WHOLE, ZOOMED, AFTER_JUMP };

  std::size_t regionIndex(long long time) const {
    return static_cast<std::size_t>(std::max(0L, lastAtOrBefore(regions_, time)));
  }

  // The largest rectangle of the target's aspect that the region holds,
  // divided by the zoom.
  Size zoomSize(const Rectangle& region) const {
    const double w = static_cast<double>(width(region));
    const double h = static_cast<double>(height(region));
    double fitW = w;
    double fitH = h;
    if (w * targetHeight_ <= h * targetWidth_) {
      fitH = w * targetHeight_ / targetWidth_;
    } else {
      fitW = h * targetWidth_ / targetHeight_;
    }
    return {std::max(1LL, std::llround(fitW / zoom_)), std::max(1LL, std::llround(fitH / zoom_))};
  }

  // A zoom rectangle centred on `p`, moved as little as needed to lie in the
  // region.
  Rectangle rectAround(const Point& p, long long time) const {
    const std::size_t index = regionIndex(time);
    const Rectangle& region = regions_[index].rect;
    const Size size = sizes_[index];
    const long long left = std::min(std::max(p.x - size.w / 2, static_cast<long long>(region.left)),
                                    region.right - size.w);
    const long long top = std::min(std::max(p.y - size.h / 2, static_cast<long long>(region.top)),
                                   region.bottom - size.h);
    return {static_cast<int>(left), static_cast<int>(left + size.w), static_cast<int>(top),
            static_cast<int>(top + size.h)};
  }

  // `r` less its margins: where activity and the cursor keep it.
  Rectangle safeArea(const Rectangle& r) const {
    const long long mx = std::llround(static_cast<double>(width(r)) * margin_);
    const long long my = std::llround(static_cast<double>(height(r)) * margin_);
    return {static_cast<int>(r.left + mx), static_cast<int>(r.right - mx),
            static_cast<int>(r.top + my), static_cast<int>(r.bottom - my)};
  }

  // Where the cursor was at `time`: its last location until then, else its
  // first. False if there is no location at all.
  bool cursorAt(long long time, Point& p, long* index = nullptr) const {
    if (locations_.empty()) return false;
    const long found = lastAtOrBefore(locations_, time);
    const ZD_MOUSE_LOCATION& location = locations_[static_cast<std::size_t>(std::max(0L, found))];
    p = {location.x, location.y};
    if (index) *index = found;
    return true;
  }

  bool inActiveStretch(long long time) const { return begin_ <= time && time <= lastActivity_; }

  // Clicks at the cursor's place; before a click, a rest of the pointer at
  // that place that lasted at least kRestMinSeconds counts from its start,
  // or from kRestMaxSeconds before the click if it was longer.
  void addClicks(const std::vector<ZD_MOUSE_ACTION>& actions, double scale) {
    const long long restMin = recordingUnits(kRestMinSeconds, scale);
    const long long restMax = recordingUnits(kRestMaxSeconds, scale);
    for (const ZD_MOUSE_ACTION& action : actions) {
      Point at = {0, 0};
      long index = 0;
      if (!inActiveStretch(action.time) || !cursorAt(action.time, at, &index)) continue;
      activities_.push_back({action.time, at});
      // A click before the first location has no rest to look back on.
      if (index < 0) continue;
      const long long cap = minus(action.time, restMax);
      long first = index;
      while (first > 0 && locations_[static_cast<std::size_t>(first)].time >= cap) {
        const ZD_MOUSE_LOCATION& earlier = locations_[static_cast<std::size_t>(first - 1)];
        if (std::llabs(earlier.x - at.x) > kRestRadius ||
            std::llabs(earlier.y - at.y) > kRestRadius)
          break;
        --first;
      }
      const long long restStart = locations_[static_cast<std::size_t>(first)].time;
      if (minus(action.time, restStart) >= restMin) {
        const long long from = std::max(restStart, cap);
        if (inActiveStretch(from)) activities_.push_back({from, at});
      }
    }
  }

  // A window that comes to the front, after the first: at its centre if a
  // zoom rectangle holds it, else where the cursor is, kept inside it.
  void addWindowChanges() {
    const Rectangle* previous = nullptr;
    for (const ZD_TIME_RECT& window : windows_) {
      const Rectangle& r = window.rect;
      if (width(r) <= 0 || height(r) <= 0) continue;
      const bool changed = previous && !(*previous == r);
      previous = &r;
      if (!changed || !inActiveStretch(window.time)) continue;
      const Size size = sizes_[regionIndex(window.time)];
      Point at = centre(r);
      Point cursor = {0, 0};
      if ((width(r) > size.w || height(r) > size.h) && cursorAt(window.time, cursor)) {
        at = {std::min(std::max(cursor.x, static_cast<long long>(r.left)),
                       static_cast<long long>(r.right)),
              std::min(std::max(cursor.y, static_cast<long long>(r.top)),
                       static_cast<long long>(r.bottom))};
      }
      activities_.push_back({window.time, at});
    }
  }

  // Typing and scrolling: changed rectangles that a zoom rectangle holds,
  // whose centre lies in the front window (when one is known), at least
  // kTypingMinTimes distinct times of them within kTypingWindowSeconds. A
  // caret that blinks or a clock that ticks stays below that rate.
  void addTyping(const std::vector<ZD_TIME_RECT>& dirty, double scale) {
    std::vector<Activity> small;
    for (const ZD_TIME_RECT& change : dirty) {
      const Rectangle& r = change.rect;
      const Size size = sizes_[regionIndex(change.time)];
      if (width(r) <= 0 || height(r) <= 0 || width(r) > size.w || height(r) > size.h) continue;
      const Point at = centre(r);
      const long window = lastAtOrBefore(windows_, change.time);
      if (window >= 0) {
        const Rectangle& front = windows_[static_cast<std::size_t>(window)].rect;
        if (width(front) > 0 && height(front) > 0 && !contains(front, at.x, at.y)) continue;
      }
      small.push_back({change.time, at});
    }
    const long long span = recordingUnits(kTypingWindowSeconds, scale);
    std::vector<long long> times;
    for (const Activity& change : small) {
      if (times.empty() || times.back() != change.time) times.push_back(change.time);
    }
    std::size_t first = 0;
    std::size_t last = 0;
    for (const Activity& change : small) {
      while (times[last] != change.time) ++last;
      while (times[first] <= minus(change.time, span)) ++first;
      if (last - first + 1 >= static_cast<std::size_t>(kTypingMinTimes) &&
          inActiveStretch(change.time)) {
        activities_.push_back(change);
      }
    }
  }

  long long earliest() const {
    return keyFrames_.empty() ? plus(begin_, fade_) : plus(keyFrames_.back().time, gap_);
  }

  // A key frame at `time`, or as soon after it as the one before allows;
  // none if `r` is in force already.
  void emit(long long time, const Rectangle& r) {
    if (r == (keyFrames_.empty() ? regionAt(time) : keyFrames_.back().rect)) return;
    keyFrames_.push_back({std::max(time, earliest()), r});
  }

  void zoomOut(long long time) {
    emit(time, regionAt(time));
    mode_ = WHOLE;
  }

  void zoomTo(const Rectangle& r, long long time) {
    emit(time, r);
    current_ = r;
    mode_ = ZOOMED;
  }

  // A pan that had to wait for the key frame before it happens as soon as
  // allowed, with the cursor where it was then.
  void beforeMoment(long long time) {
    if (panWaiting_ && earliest() < time) tryPan(earliest());
  }

  void act(const Activity& a) {
    if (mode_ == ZOOMED) {
      // Back to the whole region after the idle time, unless the activity
      // returns before the whole view could stand for the hold time.
      const long long out = std::max(plus(plus(lastAct_, idle_), fade_), earliest());
      if (a.time >= plus(out, gap_)) zoomOut(out);
    }
    if (mode_ == AFTER_JUMP && minus(a.time, jumpTime_) > idle_) mode_ = WHOLE;
    switch (mode_) {
      case WHOLE:
        zoomTo(rectAround(a.at, a.time), a.time);
        lastAct_ = a.time;
        break;
      case ZOOMED: {
        const Rectangle r = rectAround(a.at, a.time);
        if (contains(safeArea(current_), a.at.x, a.at.y) || r == current_) {
          lastAct_ = a.time;
        } else if (overlap(r, current_)) {
          zoomTo(r, a.time);
          lastAct_ = a.time;
        } else {
          zoomOut(a.time);
          mode_ = AFTER_JUMP;
          jumpTime_ = a.time;
          jumpAt_ = a.at;
        }
        break;
      }
      case AFTER_JUMP: {
        // Zoom in again once a later activity confirms the place; acts at
        // one moment (a click that brings a window to the front) are one.
        const Rectangle r = rectAround(jumpAt_, jumpTime_);
        if (a.time == jumpTime_) break;
        if (contains(safeArea(r), a.at.x, a.at.y)) {
          zoomTo(r, a.time);
          lastAct_ = a.time;
        } else {
          jumpTime_ = a.time;
          jumpAt_ = a.at;
        }
        break;
      }
    }
  }

  // Whether the pointer crossed more than a quarter of the zoom rectangle's
  // width or height in the last kTravelSeconds: a pointer on its way
  // elsewhere, which the view doesn't chase.
  bool travelling(long long time) const {
    Point before = cursor_;
    cursorAt(minus(time, travel_), before);
    return 4 * std::llabs(cursor_.x - before.x) > width(current_) ||
           4 * std::llabs(cursor_.y - before.y) > height(current_);
  }

  // While zoomed and not idle, a cursor that moves outside the safe area,
  // but not on its way elsewhere, moves the rectangle to centre it, on each
  // axis where it is outside only: the margin is the hysteresis, so small
  // moves never shake the picture.
  void tryPan(long long time) {
    panWaiting_ = false;
    if (mode_ != ZOOMED || !hasCursor_ || time > plus(lastAct_, idle_) || travelling(time)) {
      return;
    }
    const Rectangle safe = safeArea(current_);
    const Rectangle centred = rectAround(cursor_, time);
    Rectangle r = current_;
    if (cursor_.x < safe.left || cursor_.x > safe.right) {
      r.left = centred.left;
      r.right = centred.right;
    }
    if (cursor_.y < safe.top || cursor_.y > safe.bottom) {
      r.top = centred.top;
      r.bottom = centred.bottom;
    }
    if (r == current_) return;
    if (time < earliest()) {
      panWaiting_ = true;
      return;
    }
    zoomTo(r, time);
  }

  const int targetWidth_;
  const int targetHeight_;
  const double zoom_;
  const double margin_;
  const long long fade_;
  const long long gap_;
  const long long idle_;
  const long long travel_;
  const std::vector<ZD_TIME_RECT> regions_;
  const std::vector<ZD_TIME_RECT> windows_;
  const std::vector<ZD_MOUSE_LOCATION> locations_;
  std::vector<Size> sizes_;
  long long begin_ = 0;
  long long limit_ = 0;
  long long lastActivity_ = 0;
  std::vector<Activity> activities_;

  std::vector<ZD_TIME_RECT> keyFrames_;
  Mode mode_ = WHOLE;
  Rectangle current_ = {0, 0, 0, 0};
  long long lastAct_ = 0;
  long long jumpTime_ = 0;
  Point jumpAt_ = {0, 0};
  Point cursor_ = {0, 0};
  bool hasCursor_ = false;
  bool panWaiting_ = false;
};

}  // namespace

boost::shared_ptr<FollowEngine> FollowEngine::create(const Settings& settings) {
  return boost::shared_ptr<FollowEngine>(new FollowEngine(settings));
}

boost::shared_ptr<FollowEngine> FollowEngine::create() {
  return create(Settings());
}

FollowEngine::FollowEngine(const Settings& settings) : settings_(settings) {
  const auto duration = [](double seconds) { return std::isfinite(seconds) && seconds >= 0; };
  check(!std::isnan(settings.zoom), "FollowEngine: the zoom is not a number", ZDERR_BAD_SETTING);
  check(duration(settings.idleSeconds) && duration(settings.holdSeconds),
        "FollowEngine: the idle and hold times must be finite and not negative", ZDERR_BAD_SETTING);
  check(settings.marginFraction >= 0 && settings.marginFraction < 0.5,
        "FollowEngine: the margin must be from 0 up to 0.5 of a rectangle's size",
        ZDERR_BAD_SETTING);
  settings_.zoom = std::min(std::max(settings.zoom, 1.0), 4.0);
}

std::unique_ptr<std::vector<ZD_TIME_RECT>> FollowEngine::calcZoomdriftKeyframes(
    Params const& params, long) {
  checkParams(params);
  return std::unique_ptr<std::vector<ZD_TIME_RECT>>(
      new std::vector<ZD_TIME_RECT>(FollowRun(params, settings_).keyFrames()));
}

std::unique_ptr<std::vector<ZD_TIME_RECT>> FollowEngine::calcZoomdriftKeyframeAtTime(
    Params const& params, long long time) {
  checkParams(params);
  FollowRun run(params, settings_);
  const std::vector<ZD_TIME_RECT> all = run.keyFrames();
  const long found = lastAtOrBefore(all, time);
  const Rectangle rect = found < 0 ? run.regionAt(time) : all[static_cast<std::size_t>(found)].rect;
  return std::unique_ptr<std::vector<ZD_TIME_RECT>>(new std::vector<ZD_TIME_RECT>{{time, rect}});
}

}  // namespace ZoomdriftNS
