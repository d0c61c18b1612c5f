#pragma once

#include <vector>

namespace ZoomdriftNS {

/// A rectangle of a recording's screen in pixels, origin at the top left, y
/// pointing down. The order of the fields is the engine's: both horizontal
/// edges come first. `right` and `bottom` are exclusive.
struct Rectangle {
  int left;
  int right;
  int top;
  int bottom;
};

/// A rectangle at a recording time: a front window, a changed area, the
/// recording region, or an engine's key frame (the moment a zoom stands).
struct ZD_TIME_RECT {
  long long time;
  Rectangle rect;
};

/// Where the cursor was at a recording time.
struct ZD_MOUSE_LOCATION {
  long long time;
  int x;
  int y;
};

/// One cursor event (a button) at a recording time.
struct ZD_MOUSE_ACTION {
  long long time;
  int action;
};

/// The event code of each bit of a recording's cursor action mask, bit 0
/// first.
extern const int ZOOMDRIFT_EVENT_MAP[4];

/// The whole input of an automatic zoom engine. Times are recording times,
/// `timeScale()` units a second; coordinates are the recording's pixels.
class Params {
 public:
  /// No target size, no records, 100 units a second, a fade of 100 units, an
  /// empty clip interval.
  Params();

  /// The size of the picture that the zoom fills (the canvas), in pixels.
  int targetWidth() const { return targetWidth_; }
  int targetHeight() const { return targetHeight_; }
  Params& setTargetWidth(int width);
  Params& setTargetHeight(int height);

  /// The front window in force from each time on.
  std::vector<ZD_TIME_RECT>& foreWindows() { return foreWindows_; }
  const std::vector<ZD_TIME_RECT>& foreWindows() const { return foreWindows_; }
  std::vector<ZD_MOUSE_ACTION>& cursorActions() { return cursorActions_; }
  const std::vector<ZD_MOUSE_ACTION>& cursorActions() const { return cursorActions_; }
  std::vector<ZD_MOUSE_LOCATION>& cursorLocations() { return cursorLocations_; }
  const std::vector<ZD_MOUSE_LOCATION>& cursorLocations() const { return cursorLocations_; }
  /// The areas of the screen that changed, several at one time possibly.
  std::vector<ZD_TIME_RECT>& dirtyRects() { return dirtyRects_; }
  const std::vector<ZD_TIME_RECT>& dirtyRects() const { return dirtyRects_; }
  /// Where a text caret was; no recording of this library gives them.
  std::vector<ZD_TIME_RECT>& caretRects() { return caretRects_; }
  const std::vector<ZD_TIME_RECT>& caretRects() const { return caretRects_; }
  /// The part of the screen that was recorded, from each time on.
  std::vector<ZD_TIME_RECT>& recordingRegions() { return recordingRegions_; }
  const std::vector<ZD_TIME_RECT>& recordingRegions() const { return recordingRegions_; }

  /// Recording time units a second.
  double timeScale() const { return timeScale_; }
  void setTimeScale(double timeScale);
  /// How long a zoom takes to arrive, recording time units.
  long long fadeDuration() const { return fadeDuration_; }
  void setFadeDuration(long long fadeDuration);
  /// The stretch of the recording that is shown, [start, stop), recording
  /// time; stop not after start means the whole recording.
  long long clipStart() const { return clipStart_; }
  long long clipStop() const { return clipStop_; }
  void setClipInterval(long long start, long long stop);

  bool isWindows() const { return windows_; }
  void setWindowsFlag(bool windows);

 private:
  int targetWidth_;
  int targetHeight_;
  std::vector<ZD_TIME_RECT> foreWindows_;
  std::vector<ZD_MOUSE_ACTION> cursorActions_;
  std::vector<ZD_MOUSE_LOCATION> cursorLocations_;
  std::vector<ZD_TIME_RECT> dirtyRects_;
  std::vector<ZD_TIME_RECT> caretRects_;
  std::vector<ZD_TIME_RECT> recordingRegions_;
  double timeScale_;
  long long fadeDuration_;
  long long clipStart_;
  long long clipStop_;
  bool windows_;
};

}  // namespace ZoomdriftNS
