#pragma once

#include <ctime>
#include <string>

namespace OrvMediaLib {

/// Writes the "project.xml" of a recording bundle from the streams the
/// bundle holds, as a recorder does when it closes a recording: a project at
/// the screen's frame rate, its visual mixer the screen's size, with
/// - the screen video ("screen.mov", "ScreenCapture.mov" or "screen.kvdr")
///   on the first visual track, with the metadata files that are there
///   ("frontmost.dat", "cursorlocation.dat", "cursoraction.dat",
///   "dirtyrect.dat");
/// - the camera's video ("camera.mov") on a second visual track;
/// - the system sound ("audiotrack0.wav") and the camera's sound, each on an
///   audio track of its own, linked to the screen.
///
/// The project names its files relative to the bundle, so that the bundle
/// can move. Every file it names, and the project itself, get `recordedAt`
/// as their time of change, and the project says so: a reader finds them
/// unchanged.
class VidpakProjectWriter {
 public:
  /// Throws `KelMediaLibException` when the bundle holds no screen video,
  /// the stats loaders' exceptions for a stream they can't read, and
  /// `IOException` for a file that can't be written or stamped.
  static void write(const std::string& bundle, std::time_t recordedAt);
};

}  // namespace OrvMediaLib
