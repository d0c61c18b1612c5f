#pragma once

#include "media/sources/StatsLoader.h"

#include <memory>
#include <string>

namespace KelMediaLib {
class ChangedFileHandler;
}

namespace OrvMediaLib {

/// Recognises a screen recording bundle: a directory (its name as a rule
/// ending in ".vdpak") holding "project.xml", the recording's own project,
/// beside its streams and metadata:
///
/// | file                                               | holds                      |
/// |----------------------------------------------------|----------------------------|
/// | "screen.mov", "ScreenCapture.mov" or "screen.kvdr" | the screen                 |
/// | "audiotrack0.wav"                                  | the system sound           |
/// | "camera.mov"                                       | the camera and microphone  |
/// | "dirtyrect.dat", "cursoraction.dat",               | the screen's metadata      |
/// | "frontmost.dat", "cursorlocation.dat"              |                            |
///
/// The stats list one track per media of the recording's timeline, visual
/// mixer first: a video track (its file, its stretch in edit units of the
/// recording's rate, its geometry) with, for the screen, the four metadata
/// files in the order above; an audio track with its sample rate, bit depth
/// and channels. Registered with the stats loaders when the library is
/// loaded, so that a bundle is a source like any file.
class VidpakStatsLoader : public KelMediaLib::StatsLoader {
 public:
  VidpakStatsLoader();
  ~VidpakStatsLoader() override;

  /// True for a directory with a "project.xml" in it, whatever its name.
  bool canOpenFile(const std::string& path) override;
  /// Reads the bundle's "project.xml", taking every file in it as it is now
  /// whatever its time of change. Throws `IOException` for a path that
  /// `canOpenFile` refuses ("specified file not openable with a vidpakstats
  /// loader:" and the path); the reader's exceptions pass through.
  void loadStats(const std::string& path, KelMediaLib::MediaFileStats* stats) override;
  std::string description() const override;

  /// "vdpak".
  static std::string vidpakExtension();
  /// Whether the name holds "audiotrack0.wav".
  static bool validSystemAudioFilename(const std::string& name);
  /// Whether the name holds "camera.mov": the camera's file carries the
  /// microphone too.
  static bool validMicrophoneAudioFilename(const std::string& name);
  static bool validCameraVideoFilename(const std::string& name);
  /// Whether the last part of the path is "screen.mov", "ScreenCapture.mov"
  /// or "screen.kvdr", exactly.
  static bool validScreenVideoFilename(const std::string& name);

 private:
  std::unique_ptr<KelMediaLib::ChangedFileHandler> changedFileHandler;
};

}  // namespace OrvMediaLib
