// The project: creation, the history with undo groups, the timeline's
// tracks and sources, saving.

#include "Bindings.h"

#include "commands/OrvCommand.h"
#include "core/Attribute.h"
#include "core/Command.h"
#include "core/IOException.h"
#include "core/XMLable.h"
#include "media/commands/LoadSourceCmd.h"
#include "media/commands/NewAudioMixerCmd.h"
#include "media/commands/NewAudioTrackCmd.h"
#include "media/commands/NewVisualMixerCmd.h"
#include "media/commands/NewVisualTrackCmd.h"
#include "media/media/TextBox.h"
#include "media/project/CommandHistory.h"
#include "media/project/SourceBin.h"
#include "media/sources/Source.h"
#include "media/timeline/AudioMixer.h"
#include "media/timeline/AudioTrack.h"
#include "media/timeline/Timeline.h"
#include "media/timeline/VisualMixer.h"
#include "media/timeline/VisualTrack.h"

#include <pybind11/stl.h>

#include <fstream>
#include <sstream>

namespace orvpython {
namespace {

using KelMediaLib::CommandHistory;

// An undo group as a context manager: what runs inside the `with` block is one
// entry of the history; if the block raises, its edits are undone.
struct UndoGroup {
  ProjectPtr project;
  unsigned int start = 0;
};

void rollBack(const ProjectPtr& project, unsigned int start) {
  while (project->commandHistory().position() > start) {
    project->undo();
  }
}

void combineSince(const ProjectPtr& project, unsigned int start) {
  const unsigned int position = project->commandHistory().position();
  for (unsigned int made = position > start ? position - start : 0; made > 1; --made) {
    project->combineLastCommands();
  }
}

std::string documentText(const ProjectPtr& project) {
  std::ostringstream out;
  out << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
  KelMediaLib::XMLable::Options options(out);
  project->toXML(options, 0, "");
  return out.str();
}

// Written whole or not at all: the document is made before the file is opened,
// so a project that the writer refuses leaves the file untouched.
void save(const ProjectView& v, const py::object& path) {
  const std::string fileName = py::str(py::module_::import("os").attr("fspath")(path));
  const std::string text = documentText(v.project);
  std::ofstream file(fileName, std::ios::binary | std::ios::trunc);
  if (!file) {
    throw KelMediaLib::IOException("unable to open file \"" + fileName + "\" for writing.");
  }
  file.write(text.data(), static_cast<std::streamsize>(text.size()));
  file.close();
  if (!file) {
    throw KelMediaLib::IOException("unable to write file \"" + fileName + "\".");
  }
}

py::object fraction(const KelMediaLib::EditRate& rate) {
  return py::module_::import("fractions").attr("Fraction")(rate.numerator(), rate.denominator());
}

template <class MixerPtr>
std::vector<TrackView> tracksOf(const ProjectPtr& project, const MixerPtr& mixer) {
  std::vector<TrackView> list;
  if (mixer) {
    for (const auto& track : mixer->tracks()) {
      list.push_back(TrackView{project, track});
    }
  }
  return list;
}

}  // namespace

void run(const ProjectPtr& project, const boost::shared_ptr<KelMediaLib::Command>& command) {
  project->execute(command);
}

void run(const ProjectPtr& project, const boost::shared_ptr<OrvMediaLib::OrvCommand>& command) {
  project->orvExecute(command);
}

void asOneEdit(const ProjectPtr& project, const std::function<void()>& edits) {
  const unsigned int start = project->commandHistory().position();
  try {
    edits();
  } catch (...) {
    rollBack(project, start);
    throw;
  }
  combineSince(project, start);
}

void bindProject(py::module_& m) {
  py::class_<UndoGroup>(m, "UndoGroup",
                        "What runs inside `with project.undo_group():` is one entry of the "
                        "history; if the block raises, its edits are undone.")
      .def("__enter__",
           [](UndoGroup& g) -> UndoGroup& {
             g.start = g.project->commandHistory().position();
             return g;
           })
      .def("__exit__",
           [](UndoGroup& g, const py::object& type, const py::object&, const py::object&) {
             if (type.is_none()) {
               combineSince(g.project, g.start);
             } else {
               rollBack(g.project, g.start);
             }
             return false;
           });

  py::class_<ProjectView>(m, "Project",
                          "A project: a timeline of tracks and media, sources, action bins "
                          "and one history of every edit. Times are edit units of the "
                          "project's edit rate.")
      .def_static(
          "create",
          [](unsigned int rate, unsigned int denominator) {
            return ProjectView{OrvMediaLib::OrvProject::create(rate, denominator)};
          },
          py::arg("rate"), py::arg("denominator") = 1,
          "A new, empty project at `rate`/`denominator` edit units a second.")
      .def_static("load", &loadProject, py::arg("path"), py::arg("on_missing") = py::none(),
                  py::arg("on_changed") = py::none(),
                  "Reads a project file. `on_missing(path)` answers where a missing source "
                  "went (None: it is left out, and the load fails if a media shows it); "
                  "`on_changed(path)` whether a "
                  "source that changed since the file was written may be used as it is. "
                  "Without them, a missing or changed source fails the load. Loading isn't "
                  "an edit: the project's history is empty.")
      .def_property_readonly("edit_rate",
                             [](const ProjectView& v) { return fraction(v.project->editRate()); })
      // The history.
      .def("undo", [](const ProjectView& v) { v.project->undo(); })
      .def("redo", [](const ProjectView& v) { v.project->redo(); })
      .def_property_readonly(
          "can_undo", [](const ProjectView& v) { return v.project->commandHistory().canUndo(); })
      .def_property_readonly(
          "can_redo", [](const ProjectView& v) { return v.project->commandHistory().canRedo(); })
      .def_property_readonly(
          "history",
          [](const ProjectView& v) {
            const CommandHistory& history = v.project->commandHistory();
            std::vector<std::string> entries;
            for (unsigned int i = 0; i < history.numCommands(); ++i) {
              entries.push_back(history.commandAt(i)->description());
            }
            return entries;
          },
          "The description of each entry, done and undone.")
      .def_property_readonly(
          "history_position",
          [](const ProjectView& v) { return v.project->commandHistory().position(); },
          "How many entries of `history` are done.")
      .def(
          "undo_group", [](const ProjectView& v) { return UndoGroup{v.project}; },
          "A context manager: the edits made inside it become one entry of the history.")
      // The timeline.
      .def(
          "new_visual_mixer",
          [](const ProjectView& v, float width, float height) {
            run(v.project, KelMediaLib::NewVisualMixerCmd::create(width, height));
          },
          py::arg("width"), py::arg("height"),
          "Makes the canvas on which the visual tracks are mixed.")
      .def(
          "new_audio_mixer",
          [](const ProjectView& v, unsigned int rate, unsigned int bits, unsigned int channels) {
            run(v.project, KelMediaLib::NewAudioMixerCmd::create(rate, bits, channels));
          },
          py::arg("sample_rate") = 48000, py::arg("bit_depth") = 16, py::arg("channels") = 2)
      .def_property_readonly(
          "canvas",
          [](const ProjectView& v) -> py::object {
            const auto mixer = v.project->timeline()->visualMixer();
            if (!mixer) return py::none();
            return py::make_tuple(mixer->attributeWidth()->value(),
                                  mixer->attributeHeight()->value());
          },
          "(width, height) of the visual mixer; None without one.")
      .def(
          "new_visual_track",
          [](const ProjectView& v, int index) {
            const auto command = KelMediaLib::NewVisualTrackCmd::create(index);
            run(v.project, command);
            return TrackView{v.project, command->visualTrack()};
          },
          py::arg("index") = -1, "A new visual track at `index` (-1: on top).")
      .def(
          "new_audio_track",
          [](const ProjectView& v, int index) {
            const auto command = KelMediaLib::NewAudioTrackCmd::create(index);
            run(v.project, command);
            return TrackView{v.project, command->audioTrack()};
          },
          py::arg("index") = -1)
      .def_property_readonly(
          "tracks",
          [](const ProjectView& v) {
            return tracksOf(v.project, v.project->timeline()->visualMixer());
          },
          "The visual tracks, bottom first.")
      .def_property_readonly("audio_tracks",
                             [](const ProjectView& v) {
                               return tracksOf(v.project, v.project->timeline()->audioMixer());
                             })
      .def_property_readonly(
          "media",
          [](const ProjectView& v) {
            py::list list;
            for (const auto& media : v.project->timeline()->allMedias()) {
              list.append(mediaObject(v.project, media));
            }
            return list;
          },
          "Every media on the timeline.")
      .def(
          "text_box",
          [](const ProjectView& v, const std::string& text, long long duration, float width,
             float height) {
            return MediaView{
                v.project, KelMediaLib::TextBox::create(text, duration, width, height, v.project)};
          },
          py::arg("text"), py::arg("duration"), py::arg("width"), py::arg("height"),
          "A new text box, on no track yet: put it on one with `track.add`.")
      // Sources.
      .def(
          "load_source",
          [](const ProjectView& v, const py::object& path) {
            const std::string fileName = py::str(py::module_::import("os").attr("fspath")(path));
            const auto command = KelMediaLib::LoadSourceCmd::create(fileName);
            run(v.project, command);
            return SourceView{v.project, command->source()};
          },
          py::arg("path"), "Loads a media file into the source bin.")
      .def_property_readonly("sources",
                             [](const ProjectView& v) {
                               std::vector<SourceView> list;
                               for (const auto& source : v.project->sourceBin()->sources()) {
                                 list.push_back(SourceView{v.project, source});
                               }
                               return list;
                             })
      // Actions.
      .def_property_readonly("action_bin",
                             [](const ProjectView& v) {
                               return ActionBinView{v.project, v.project->actionBin()};
                             })
      .def_property_readonly(
          "zoom_action_bin",
          [](const ProjectView& v) {
            return ActionBinView{v.project, v.project->zdActionBin()};
          },
          "The bin of the actions that automatic zoom makes.")
      .def_property_readonly("audio_action_bin",
                             [](const ProjectView& v) {
                               return ActionBinView{v.project, v.project->audioActionBin()};
                             })
      .def(
          "add_action",
          [](const ProjectView& v, const MediaView& media, long long start, long long duration,
             const py::iterable& ranges, bool edge, const py::object& bin) {
            return addAction(v.project, media, start, duration, ranges, edge, bin);
          },
          py::arg("media"), py::arg("start"), py::arg("duration"), py::arg("ranges"),
          py::arg("edge") = false, py::arg("bin") = py::none(),
          "Adds an action over (start, duration) of the media's own time. Each range is "
          "(parameter, value[, transform[, modifier]]): transform one of set, scale, "
          "pure_scale, translate, identity (default set); modifier one of "
          "orig_to_modified, modified_to_orig, fade_in, restore (default orig_to_modified).")
      // The project file.
      .def(
          "to_xml", [](const ProjectView& v) { return documentText(v.project); },
          "The project file's text.")
      .def("save", &save, py::arg("path"), "Writes the project file.")
      .def("__repr__", [](const ProjectView& v) {
        const auto rate = v.project->editRate();
        return "<orvmedialib.Project at " + std::to_string(rate.numerator()) + "/" +
               std::to_string(rate.denominator()) + " with " +
               std::to_string(v.project->commandHistory().position()) + " edits>";
      });
}

}  // namespace orvpython
