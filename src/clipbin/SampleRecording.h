#pragma once

#include <string>

namespace OrvMediaLib {

/// A short screen recording that the library makes itself, to show and test
/// what it does with recordings without a file from elsewhere.
///
/// Ten seconds at 1280x720 and 30 frames a second: a desktop with two
/// windows. The user clicks into the editor window on the left and types a
/// line and a half; moves to the browser window on the right, clicks its
/// search field (the window comes to the front) and types a word; clicks the
/// search button, and results appear.
///
/// The bundle holds:
/// - "screen.mov": the pictures, QuickTime Animation (lossless), cursor drawn;
/// - "audiotrack0.wav": the system sound, 48 kHz mono 16-bit: a quiet hum
///   with a tick for every key and a louder one for every click;
/// - the metadata, consistent with the pictures: "cursorlocation.dat" (the
///   cursor's tip at every frame it moves), "cursoraction.dat" (each click,
///   mask 1), "frontmost.dat" (the front window when it changes),
///   "dirtyrect.dat" (the rectangles of the screen that changed, the cursor
///   aside: each typed character, the raised window, the button, the
///   results);
/// - "project.xml": a project at 30/1 with the screen on a visual track and
///   the sound on an audio track, written by `ProjectWriter`. It names its
///   files relative to the bundle, so the bundle can move.
///
/// Deterministic: every file has the same bytes on every run, wherever the
/// bundle is written; every file's time of change is the recording's date.
class SampleRecording {
 public:
  /// The recording's size, rate and length.
  static constexpr int width = 1280;
  static constexpr int height = 720;
  static constexpr int framesPerSecond = 30;
  static constexpr int frames = 300;
  /// The sound's rate.
  static constexpr int sampleRate = 48000;

  /// Writes the bundle "sample.vdpak" into `folder` (made if missing),
  /// replacing the files of an earlier one; returns its path. Throws
  /// `IOException` naming a file that can't be written.
  static std::string write(const std::string& folder);
};

}  // namespace OrvMediaLib
