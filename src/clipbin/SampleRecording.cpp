#include "clipbin/SampleRecording.h"

#include "clipbin/VidpakProjectWriter.h"
#include "core/IOException.h"
#include "media/sources/MediaFileWriter.h"

#include <boost/filesystem.hpp>

#include <algorithm>
#include <cstdint>
#include <ctime>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace OrvMediaLib {

using KelMediaLib::MediaFileWriter;

namespace {

// When the recording was made: every file of the bundle bears this time of
// change, and "project.xml" says so, so the bundle reads as unchanged.
const std::time_t kRecordedAt = 1767225600;  // 2026-01-01 00:00:00 UTC

struct Box {
  int x, y, w, h;
  bool contains(int px, int py) const { return px >= x && px < x + w && py >= y && py < y + h; }
};

struct Rgb {
  std::uint8_t r, g, b;
};

// The desktop, in screen pixels, origin at the top left.
const Box kMenuBar{0, 0, SampleRecording::width, 24};
const Box kEditor{100, 80, 600, 420};
const Box kBrowser{620, 200, 580, 440};
const int kTitleHeight = 28;
const Box kSearchField{650, 244, 360, 28};
const Box kButton{940, 570, 140, 40};
const Box kResults{650, 300, 520, 240};

const Rgb kDesktop{58, 110, 165};
const Rgb kMenu{236, 236, 236};
const Rgb kFrame{90, 90, 90};
const Rgb kActiveTitle{176, 198, 230};
const Rgb kInactiveTitle{214, 214, 214};
const Rgb kPaper{255, 255, 255};
const Rgb kPanel{242, 242, 242};
const Rgb kInk{40, 40, 40};
const Rgb kButtonUp{40, 120, 220};
const Rgb kButtonDown{20, 80, 160};
const Rgb kResultRow{205, 220, 240};

// The story, in frames.
const int kClickEditor = 60;
const int kFirstEditorKey = 69;
const int kEditorKeys = 24;
const int kClickField = 168;  // raises the browser
const int kFirstFieldKey = 180;
const int kFieldKeys = 10;
const int kClickButton = 240;
const int kButtonUpAgain = 246;
const int kResultsShown = 249;
const int kKeyEvery = 3;

// Where the cursor's tip travels: it rests, or moves from one place to the
// next with a smooth start and stop.
struct Leg {
  int from;  // first frame of the move
  int to;    // frame at which it arrives
  int x, y;  // where it arrives
};
const int kStartX = 1000, kStartY = 620;
const Leg kLegs[] = {
    {30, 60, 260, 140},     // to the editor's text
    {144, 168, 760, 258},   // to the browser's search field
    {219, 240, 1010, 590},  // to the search button
    {255, 290, 980, 560},   // drifts off after the click
};

struct Point2 {
  int x, y;
  bool operator!=(const Point2& other) const { return x != other.x || y != other.y; }
};

Point2 cursorAt(int frame) {
  Point2 at{kStartX, kStartY};
  for (const Leg& leg : kLegs) {
    if (frame >= leg.to) {
      at = Point2{leg.x, leg.y};
      continue;
    }
    if (frame > leg.from) {
      // Smoothstep in integers: 3s^2 - 2s^3 with s = done / span.
      const long long span = leg.to - leg.from;
      const long long done = frame - leg.from;
      const long long eased = (3 * done * done * span - 2 * done * done * done);  // / span^3
      const long long cube = span * span * span;
      at.x += static_cast<int>((leg.x - at.x) * eased / cube);
      at.y += static_cast<int>((leg.y - at.y) * eased / cube);
    }
    break;
  }
  return at;
}

std::vector<int> clickFrames() {
  return {kClickEditor, kClickField, kClickButton};
}

// The cell of the `index`th character typed from `left`, `top`: words of
// five letters, lines of `perLine`.
Box characterCell(int left, int top, int index, int perLine) {
  const int line = index / perLine;
  const int column = index % perLine;
  return Box{left + column * 10 + (column / 5) * 6, top + line * 22, 9, 16};
}

Box editorCharacter(int index) {
  return characterCell(kEditor.x + 20, kEditor.y + kTitleHeight + 20, index, 15);
}
Box fieldCharacter(int index) {
  return characterCell(kSearchField.x + 8, kSearchField.y + 6, index, 30);
}

// Characters typed by `frame`: one every few frames from `first`.
int typedBy(int frame, int first, int count) {
  if (frame < first) {
    return 0;
  }
  return std::min(count, (frame - first) / kKeyEvery + 1);
}

bool browserInFront(int frame) {
  return frame >= kClickField;
}

// The rectangles whose pixels change at `frame`, the cursor aside.
std::vector<Box> changesAt(int frame) {
  std::vector<Box> changes;
  if (frame >= kFirstEditorKey && frame < kFirstEditorKey + kEditorKeys * kKeyEvery &&
      (frame - kFirstEditorKey) % kKeyEvery == 0) {
    changes.push_back(editorCharacter((frame - kFirstEditorKey) / kKeyEvery));
  }
  if (frame == kClickField) {
    changes.push_back(kEditor);  // its title bar turns inactive, its edge goes under
    changes.push_back(kBrowser);
  }
  if (frame >= kFirstFieldKey && frame < kFirstFieldKey + kFieldKeys * kKeyEvery &&
      (frame - kFirstFieldKey) % kKeyEvery == 0) {
    changes.push_back(fieldCharacter((frame - kFirstFieldKey) / kKeyEvery));
  }
  if (frame == kClickButton || frame == kButtonUpAgain) {
    changes.push_back(kButton);
  }
  if (frame == kResultsShown) {
    changes.push_back(kResults);
  }
  return changes;
}

// Drawing into one RGB frame, clipped to the screen.
class Canvas {
 public:
  Canvas(std::uint8_t* rgb, int lineSize) : rgb_(rgb), lineSize_(lineSize) {}

  void fill(const Box& box, const Rgb& colour) const {
    const int left = std::max(0, box.x);
    const int right = std::min(SampleRecording::width, box.x + box.w);
    const int top = std::max(0, box.y);
    const int bottom = std::min(SampleRecording::height, box.y + box.h);
    for (int y = top; y < bottom; ++y) {
      for (int x = left; x < right; ++x) {
        set(x, y, colour);
      }
    }
  }

  void frame(const Box& box, const Rgb& colour) const {
    fill(Box{box.x, box.y, box.w, 1}, colour);
    fill(Box{box.x, box.y + box.h - 1, box.w, 1}, colour);
    fill(Box{box.x, box.y, 1, box.h}, colour);
    fill(Box{box.x + box.w - 1, box.y, 1, box.h}, colour);
  }

  void set(int x, int y, const Rgb& colour) const {
    if (x < 0 || y < 0 || x >= SampleRecording::width || y >= SampleRecording::height) {
      return;
    }
    std::uint8_t* pixel = rgb_ + static_cast<std::ptrdiff_t>(y) * lineSize_ + 3 * x;
    pixel[0] = colour.r;
    pixel[1] = colour.g;
    pixel[2] = colour.b;
  }

 private:
  std::uint8_t* rgb_;
  int lineSize_;
};

// A letter: a dark block of one of three heights, as text looks from afar.
void drawCharacter(const Canvas& canvas, const Box& cell, int index) {
  const int height = 8 + 2 * (index * 7 % 3);
  canvas.fill(Box{cell.x + 1, cell.y + cell.h - 2 - height, cell.w - 2, height}, kInk);
}

void drawWindow(const Canvas& canvas, const Box& window, bool active, const Rgb& body) {
  canvas.fill(window, body);
  canvas.fill(Box{window.x, window.y, window.w, kTitleHeight},
              active ? kActiveTitle : kInactiveTitle);
  canvas.frame(window, kFrame);
}

void drawEditor(const Canvas& canvas, int frame) {
  drawWindow(canvas, kEditor, !browserInFront(frame), kPaper);
  const int typed = typedBy(frame, kFirstEditorKey, kEditorKeys);
  for (int i = 0; i < typed; ++i) {
    drawCharacter(canvas, editorCharacter(i), i);
  }
}

void drawBrowser(const Canvas& canvas, int frame) {
  drawWindow(canvas, kBrowser, browserInFront(frame), kPanel);
  canvas.fill(kSearchField, kPaper);
  canvas.frame(kSearchField, kFrame);
  const int typed = typedBy(frame, kFirstFieldKey, kFieldKeys);
  for (int i = 0; i < typed; ++i) {
    drawCharacter(canvas, fieldCharacter(i), i + 3);
  }
  canvas.fill(kButton, frame >= kClickButton && frame < kButtonUpAgain ? kButtonDown : kButtonUp);
  if (frame >= kResultsShown) {
    for (int row = 0; row < 5; ++row) {
      canvas.fill(Box{kResults.x, kResults.y + row * 48, kResults.w, 40}, kResultRow);
    }
  }
}

// The arrow, its tip at the top left: 'X' outline, '.' fill.
const char* const kArrow[] = {
    "X",        "XX",       "X.X",       "X..X",       "X...X",       "X....X",
    "X.....X",  "X......X", "X.......X", "X........X", "X......XXXX", "X..X..X",
    "X.X X..X", "XX  X..X", "X    X..X", "     X..X",  "      XX",
};

void drawCursor(const Canvas& canvas, const Point2& tip) {
  int dy = 0;
  for (const char* row : kArrow) {
    for (int dx = 0; row[dx]; ++dx) {
      if (row[dx] == 'X') {
        canvas.set(tip.x + dx, tip.y + dy, Rgb{0, 0, 0});
      } else if (row[dx] == '.') {
        canvas.set(tip.x + dx, tip.y + dy, Rgb{255, 255, 255});
      }
    }
    ++dy;
  }
}

void drawFrame(long long frame, std::uint8_t* rgb, int lineSize) {
  const Canvas canvas(rgb, lineSize);
  const int at = static_cast<int>(frame);
  canvas.fill(Box{0, 0, SampleRecording::width, SampleRecording::height}, kDesktop);
  canvas.fill(kMenuBar, kMenu);
  if (browserInFront(at)) {
    drawEditor(canvas, at);
    drawBrowser(canvas, at);
  } else {
    drawBrowser(canvas, at);
    drawEditor(canvas, at);
  }
  drawCursor(canvas, cursorAt(at));
}

// The sound, in integers only so that every machine makes the same bytes: a
// quiet triangle hum at 120 Hz, and a short burst of noise, decaying, at
// every key (soft) and click (loud).
struct Tick {
  long long start;
  int loudness;
};

std::vector<Tick> ticks() {
  const long long samplesPerFrame = SampleRecording::sampleRate / SampleRecording::framesPerSecond;
  std::vector<Tick> all;
  for (int i = 0; i < kEditorKeys; ++i) {
    all.push_back(Tick{(kFirstEditorKey + i * kKeyEvery) * samplesPerFrame, 3000});
  }
  for (int i = 0; i < kFieldKeys; ++i) {
    all.push_back(Tick{(kFirstFieldKey + i * kKeyEvery) * samplesPerFrame, 3000});
  }
  for (int frame : clickFrames()) {
    all.push_back(Tick{frame * samplesPerFrame, 9000});
  }
  return all;
}

void fillSound(long long first, long long count, std::int16_t* out) {
  static const std::vector<Tick> all = ticks();
  const long long tickLength = SampleRecording::sampleRate / 100;  // 10 ms
  const long long period = SampleRecording::sampleRate / 120;
  for (long long i = 0; i < count; ++i) {
    const long long n = first + i;
    const long long phase = n % period;
    const long long triangle = (phase < period / 2 ? phase : period - phase) * 4 - period;
    long long value = triangle * 400 / period;
    for (const Tick& tick : all) {
      const long long into = n - tick.start;
      if (into >= 0 && into < tickLength) {
        // A fixed hash of the sample's index gives the noise.
        const unsigned long long hash = (static_cast<unsigned long long>(n) * 2654435761ULL) >> 7;
        const long long noise = static_cast<long long>(hash % 2001) - 1000;
        value += noise * tick.loudness / 1000 * (tickLength - into) / tickLength;
      }
    }
    out[i] = static_cast<std::int16_t>(std::max(-32768LL, std::min(32767LL, value)));
  }
}

// Times in seconds with enough digits that they land on their frame.
std::string seconds(int frame) {
  std::ostringstream out;
  out.precision(6);
  out << std::fixed << static_cast<double>(frame) / SampleRecording::framesPerSecond;
  return out.str();
}

void writeText(const std::string& path, const std::string& text) {
  std::ofstream out(path, std::ios::binary | std::ios::trunc);
  out << text;
  out.close();
  if (!out) {
    throw KelMediaLib::IOException("can't write \"" + path + "\"");
  }
}

std::string boxText(const Box& box) {
  return std::to_string(box.x) + ' ' + std::to_string(box.y) + ' ' + std::to_string(box.w) + ' ' +
         std::to_string(box.h);
}

void writeMetaData(const std::string& bundle) {
  std::string locations = "# time x y: the cursor's tip, whenever it moved\n";
  Point2 last{-1, -1};
  for (int frame = 0; frame < SampleRecording::frames; ++frame) {
    const Point2 at = cursorAt(frame);
    if (frame == 0 || at != last) {
      locations += seconds(frame) + ' ' + std::to_string(at.x) + ' ' + std::to_string(at.y) + '\n';
    }
    last = at;
  }
  std::string actions = "# time mask: a click of the left button\n";
  for (int frame : clickFrames()) {
    actions += seconds(frame) + " 1\n";
  }
  const std::string windows = "# time x y width height: the front window\n" + seconds(0) + ' ' +
                              boxText(kEditor) + '\n' + seconds(kClickField) + ' ' +
                              boxText(kBrowser) + '\n';
  std::string dirty = "# time count x y width height...: what changed, the cursor aside\n";
  for (int frame = 0; frame < SampleRecording::frames; ++frame) {
    const std::vector<Box> changes = changesAt(frame);
    if (changes.empty()) {
      continue;
    }
    dirty += seconds(frame) + ' ' + std::to_string(changes.size());
    for (const Box& box : changes) {
      dirty += ' ' + boxText(box);
    }
    dirty += '\n';
  }
  writeText(bundle + "/cursorlocation.dat", locations);
  writeText(bundle + "/cursoraction.dat", actions);
  writeText(bundle + "/frontmost.dat", windows);
  writeText(bundle + "/dirtyrect.dat", dirty);
}

}  // namespace

std::string SampleRecording::write(const std::string& folder) {
  const std::string bundle = folder + "/sample.vdpak";
  boost::system::error_code error;
  boost::filesystem::create_directories(bundle, error);
  if (error) {
    throw KelMediaLib::IOException("can't make the folder \"" + bundle + "\": " + error.message());
  }
  MediaFileWriter::Video screen{width, height, {framesPerSecond, 1}, frames};
  screen.codec = MediaFileWriter::Codec::Animation;
  screen.draw = drawFrame;
  MediaFileWriter::write(bundle + "/screen.mov", {screen}, {});
  const long long samples = static_cast<long long>(frames) * sampleRate / framesPerSecond;
  MediaFileWriter::write(bundle + "/audiotrack0.wav", {}, {{sampleRate, 1, samples, fillSound}});
  writeMetaData(bundle);
  VidpakProjectWriter::write(bundle, kRecordedAt);
  return bundle;
}

}  // namespace OrvMediaLib
