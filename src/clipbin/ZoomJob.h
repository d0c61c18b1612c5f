#pragma once

#include "core/ProjectEditRate.h"
#include "zoomdrift/Params.h"

#include <iosfwd>
#include <string>
#include <vector>

namespace OrvMediaLib {

/// Automatic zoom on a recording, from end to end: what an application does
/// when the user drops a recording bundle into an empty project and asks for
/// automatic zoom.
///
/// `run` makes a project at the recording's rate with a canvas of its size,
/// loads the bundle as a source, puts its screen video on a visual track and
/// its sound on an audio track (linked), and runs `ZoomdriftAddActionsCmd`
/// with the library's `FollowEngine`. It then checks the history (undo gives
/// back the project's file text from before, redo the text from after),
/// writes the project file, reads it back and checks that writing it again
/// gives the same text.
class ZoomJob {
 public:
  struct Settings {
    /// How much each zoom enlarges; see `FollowEngine::Settings::zoom`.
    double zoom = 2.0;
    /// How long a zoom takes to arrive, in seconds.
    double fadeSeconds = 0.5;
  };

  /// One zoom action: from when its fade starts to when its rectangle (in
  /// the recording's pixels, origin top left) fills the view, in seconds of
  /// the timeline.
  struct Zoom {
    double start;
    double end;
    ZoomdriftNS::Rectangle rect;
  };

  /// What was done and found.
  struct Result {
    std::string bundle;
    std::string screenFile;
    /// Empty when the recording has no sound.
    std::string soundFile;
    KelMediaLib::EditRate editRate;
    int width = 0;
    int height = 0;
    /// Length of the screen video.
    double seconds = 0;
    std::vector<Zoom> zooms;
    /// The metadata as the engine saw it, times in edit units.
    std::vector<ZoomdriftNS::ZD_MOUSE_LOCATION> cursorPath;
    std::vector<ZoomdriftNS::ZD_MOUSE_ACTION> clicks;
    /// Whether undo gave back the text from before the zoom, byte for byte.
    bool undoExact = false;
    /// Whether redo then gave back the text from after it.
    bool redoExact = false;
    /// Whether the file read back wrote the same text, with the zoom
    /// actions in it.
    bool readBackSame = false;
  };

  /// Runs the job on the bundle at `bundle` and writes the project to
  /// `projectFile`. Throws what loading the bundle, the zoom command or
  /// writing throws; a failed check isn't an exception, it is in the result.
  static Result run(const std::string& bundle, const std::string& projectFile,
                    const Settings& settings);

  /// The result for a person, a line a fact:
  ///
  ///     media: /…/sample.vdpak/screen.mov (1280x720, 10.00 s at 30/1)
  ///     sound: /…/sample.vdpak/audiotrack0.wav
  ///     zoom actions: 3
  ///       1: 1.50 s - 2.00 s  rect (65,0)-(705,360)
  ///     undo: exact; redo: exact
  ///     read back: same
  static void printSummary(std::ostream& out, const Result& result);
};

}  // namespace OrvMediaLib
