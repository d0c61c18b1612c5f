// What the orv tool does, callable from a script: reading a project file,
// making the sample recording, automatic zoom on a recording bundle.

#include "Bindings.h"

#include "clipbin/SampleRecording.h"
#include "clipbin/ZoomJob.h"
#include "clipbin/ZoomPicture.h"
#include "core/KelMediaLibException.h"
#include "media/parser/ChangedFileHandler.h"
#include "media/parser/MissingFileHandler.h"
#include "parser/OrvParser.h"

namespace orvpython {
namespace {

std::string pathOf(const py::object& path) {
  return py::str(py::module_::import("os").attr("fspath")(path));
}

// Asks the script's callables about the sources a project file names: where a
// missing file went (None: leave the source out), and whether a changed one may be loaded
// as it is.
class ScriptFileHandlers : public KelMediaLib::MissingFileHandler,
                           public KelMediaLib::ChangedFileHandler {
 public:
  ScriptFileHandlers(py::object onMissing, py::object onChanged)
      : onMissing_(std::move(onMissing)), onChanged_(std::move(onChanged)) {}

  std::string handleMissingFile(const std::string& path) override {
    const py::object answer = onMissing_(path);
    return answer.is_none() ? std::string() : pathOf(answer);
  }

  bool handleChangedFile(const std::string& path, const KelMediaLib::MediaFileStats*,
                         const KelMediaLib::MediaFileStats*) override {
    return py::bool_(onChanged_(path));
  }

 private:
  py::object onMissing_;
  py::object onChanged_;
};

}  // namespace

ProjectView loadProject(const py::object& path, const py::object& onMissing,
                        const py::object& onChanged) {
  const std::string fileName = pathOf(path);
  ScriptFileHandlers handlers(onMissing, onChanged);
  OrvMediaLib::OrvParser parser(onMissing.is_none() ? nullptr : &handlers,
                                onChanged.is_none() ? nullptr : &handlers);
  const auto project = parser.parseProject(fileName);
  if (!project) {
    throw KelMediaLib::KelMediaLibException("\"" + fileName + "\" holds no project");
  }
  return ProjectView{project};
}

namespace {

py::dict zoom(const py::object& bundle, const py::object& output, double factor,
              double fadeSeconds, const py::object& svg) {
  OrvMediaLib::ZoomJob::Settings settings;
  settings.zoom = factor;
  settings.fadeSeconds = fadeSeconds;
  const OrvMediaLib::ZoomJob::Result result =
      OrvMediaLib::ZoomJob::run(pathOf(bundle), pathOf(output), settings);
  if (!svg.is_none()) {
    OrvMediaLib::ZoomPicture::write(result, pathOf(svg));
  }
  py::list zooms;
  for (const auto& z : result.zooms) {
    zooms.append(py::make_tuple(z.start, z.end, z.rect));
  }
  py::dict summary;
  summary["screen"] = result.screenFile;
  summary["sound"] = result.soundFile.empty() ? py::object(py::none())
                                              : py::object(py::str(result.soundFile));
  summary["size"] = py::make_tuple(result.width, result.height);
  summary["seconds"] = result.seconds;
  summary["zooms"] = zooms;
  summary["undo_exact"] = result.undoExact;
  summary["redo_exact"] = result.redoExact;
  summary["read_back_same"] = result.readBackSame;
  return summary;
}

}  // namespace

void bindJobs(py::module_& m) {
  m.def(
      "sample",
      [](const py::object& folder) {
        return OrvMediaLib::SampleRecording::write(pathOf(folder));
      },
      py::arg("folder"),
      "Writes the library's sample screen recording, a bundle \"sample.vdpak\" in "
      "`folder`, and answers its path. The same bytes on every run.");
  m.def("zoom", &zoom, py::arg("bundle"), py::arg("output"), py::arg("zoom") = 2.0,
        py::arg("fade") = 0.5, py::arg("svg") = py::none(),
        "Automatic zoom on a recording bundle, as `orv zoom` does it: a project at "
        "the recording's rate with its screen and sound, zoom actions from the "
        "reference engine, written to `output` and read back. Answers a dict: "
        "screen, sound, size, seconds, zooms [(start s, end s, Rectangle)], "
        "undo_exact, redo_exact, read_back_same. With `svg`, also draws the zooms "
        "there.");
}

}  // namespace orvpython
