// Tracks, media and sources as Python objects with properties.

#include "Bindings.h"

#include "core/Attribute.h"
#include "media/commands/AddMediaCmd.h"
#include "media/commands/MoveMediaCmd.h"
#include "media/commands/RemoveMediaCmd.h"
#include "media/media/AMFile.h"
#include "media/media/AudioTransition.h"
#include "media/media/Callout.h"
#include "media/media/IMFile.h"
#include "media/media/ImageTransition.h"
#include "media/media/TextBox.h"
#include "media/media/VMFile.h"
#include "media/metadata/ScreenMetaData.h"
#include "media/sources/MediaFileStats.h"
#include "media/sources/Source.h"
#include "media/timeline/AudioTrack.h"
#include "media/timeline/ImageTrack.h"
#include "media/timeline/Mixer.h"
#include "media/timeline/Track.h"
#include "media/timeline/VisualTrack.h"
#include "values/ParameterInterface.h"
#include "values/SetAttributeValueCmd.h"

#include <pybind11/stl.h>

#include <boost/make_shared.hpp>

namespace orvpython {
namespace {

using KelMediaLib::Media;

// The kind's class name: what a project file calls it.
std::string kindOf(const Media& media) {
  if (dynamic_cast<const KelMediaLib::VMFile*>(&media)) return "VMFile";
  if (dynamic_cast<const KelMediaLib::AMFile*>(&media)) return "AMFile";
  if (dynamic_cast<const KelMediaLib::IMFile*>(&media)) return "IMFile";
  if (dynamic_cast<const KelMediaLib::TextBox*>(&media)) return "TextBox";
  if (dynamic_cast<const KelMediaLib::Callout*>(&media)) return "Callout";
  if (dynamic_cast<const KelMediaLib::ImageTransition*>(&media)) return "ImageTransition";
  if (dynamic_cast<const KelMediaLib::AudioTransition*>(&media)) return "AudioTransition";
  return "Media";
}

std::string kindOf(const KelMediaLib::Track& track) {
  if (dynamic_cast<const KelMediaLib::ImageTrack*>(&track)) return "image";
  if (dynamic_cast<const KelMediaLib::VisualTrack*>(&track)) return "visual";
  if (dynamic_cast<const KelMediaLib::AudioTrack*>(&track)) return "audio";
  return "track";
}

py::list mediaList(const ProjectPtr& project,
                   const std::vector<boost::shared_ptr<const Media>>& medias) {
  py::list list;
  for (const auto& media : medias) {
    list.append(mediaObject(project, media));
  }
  return list;
}

boost::shared_ptr<const KelMediaLib::Track> trackOf(const MediaView& view) {
  const auto track = view.media->parent();
  if (!track) {
    throw py::value_error("the " + kindOf(*view.media) + " isn't on a track");
  }
  return track;
}

boost::shared_ptr<const KelMediaLib::VMFile> recording(const MediaView& view) {
  const auto video = boost::dynamic_pointer_cast<const KelMediaLib::VMFile>(view.media);
  if (!video) {
    throw py::type_error("a " + kindOf(*view.media) + " has no screen metadata");
  }
  return video;
}

// Reads the metadata files (names relative to the recording's folder) and
// sets them on the recording as one undoable edit.
void setScreenMetadata(const MediaView& view, const py::object& windows,
                       const py::object& locations, const py::object& actions,
                       const py::object& dirty) {
  const auto video = recording(view);
  const auto metaData = KelMediaLib::ScreenMetaData::create(view.project, video, view.project);
  if (!windows.is_none()) metaData->setFrontWindowFile(windows.cast<std::string>());
  if (!locations.is_none()) metaData->setCursorLocationFile(locations.cast<std::string>());
  if (!actions.is_none()) metaData->setCursorActionFile(actions.cast<std::string>());
  if (!dirty.is_none()) metaData->setDirtyRectsFile(dirty.cast<std::string>());
  typedef boost::shared_ptr<const KelMediaLib::ScreenMetaData> Value;
  run(view.project, boost::make_shared<KelMediaLib::SetAttributeValueCmd<Value>>(
                        video->screenMetaData(), Value(metaData)));
}

py::dict metadataFiles(const MediaView& view) {
  py::dict files;
  const auto metaData = recording(view)->screenMetaData()->value();
  if (metaData) {
    for (const auto& entry : metaData->parameterFiles()) {
      files[py::str(entry.first)] = entry.second;
    }
  }
  return files;
}

}  // namespace

py::object mediaObject(const ProjectPtr& project, const boost::shared_ptr<const Media>& media) {
  return media ? py::cast(MediaView{project, media}) : py::object(py::none());
}

ParameterView parameterOf(const ProjectPtr& project, const boost::shared_ptr<const Media>& media,
                          const std::string& name) {
  const auto parameter = media->parameterNamed(name);
  if (!parameter) {
    throw py::key_error("a " + kindOf(*media) + " has no parameter \"" + name + "\"");
  }
  return ParameterView{project, media, parameter};
}

void bindTimeline(py::module_& m) {
  py::class_<TrackView>(m, "Track", "A track of the timeline, its media in time order.")
      .def_property_readonly("kind", [](const TrackView& v) { return kindOf(*v.track); })
      .def_property_readonly(
          "media", [](const TrackView& v) { return mediaList(v.project, v.track->medias()); })
      .def_property_readonly("index",
                             [](const TrackView& v) -> py::object {
                               const auto mixer = v.track->parent().lock();
                               if (!mixer) return py::none();
                               return py::int_(mixer->indexOfTrack(v.track.get()));
                             })
      .def("__len__", [](const TrackView& v) { return v.track->numMedias(); })
      .def("__iter__",
           [](const TrackView& v) { return py::iter(mediaList(v.project, v.track->medias())); })
      .def(
          "add",
          [](const TrackView& v, const MediaView& media, long long time) {
            run(v.project, KelMediaLib::AddMediaCmd::create(v.track, media.media, time));
            return media;
          },
          py::arg("media"), py::arg("time"),
          "Puts the media on this track at `time` (timeline units); returns it.")
      .def("__eq__", [](const TrackView& a, const TrackView& b) { return a.track == b.track; })
      .def("__hash__", [](const TrackView& v) { return std::hash<const void*>()(v.track.get()); })
      .def("__repr__", [](const TrackView& v) {
        return "<orvmedialib.Track " + kindOf(*v.track) + " with " +
               std::to_string(v.track->numMedias()) + " media>";
      });

  py::class_<MediaView>(m, "Media",
                        "A media: a stretch of a source, a text box, a callout... Its place "
                        "on the timeline is `start` and `duration` (timeline units); its "
                        "parameters are reached by name: `media['opacity']`.")
      .def_property_readonly("kind", [](const MediaView& v) { return kindOf(*v.media); })
      .def_property_readonly("start", [](const MediaView& v) { return v.media->range().start; })
      .def_property_readonly("duration",
                             [](const MediaView& v) { return v.media->range().duration; })
      .def_property_readonly(
          "end",
          [](const MediaView& v) { return v.media->range().start + v.media->range().duration; })
      .def_property_readonly(
          "source_range",
          [](const MediaView& v) {
            const auto r = v.media->mediaTimeRange();
            return py::make_tuple(r.start, r.duration);
          },
          "(start, duration) of the source that the media shows.")
      .def_property_readonly("speed", [](const MediaView& v) { return v.media->scalar(); })
      .def_property_readonly("track",
                             [](const MediaView& v) -> py::object {
                               const auto track = v.media->parent();
                               if (!track) return py::none();
                               return py::cast(TrackView{v.project, track});
                             })
      .def_property_readonly(
          "width",
          [](const MediaView& v) -> py::object {
            const auto visual =
                boost::dynamic_pointer_cast<const KelMediaLib::VisualMedia>(v.media);
            if (!visual) return py::none();
            return py::float_(visual->width());
          })
      .def_property_readonly(
          "height",
          [](const MediaView& v) -> py::object {
            const auto visual =
                boost::dynamic_pointer_cast<const KelMediaLib::VisualMedia>(v.media);
            if (!visual) return py::none();
            return py::float_(visual->height());
          })
      .def_property_readonly(
          "file_name",
          [](const MediaView& v) -> py::object {
            const auto file =
                boost::dynamic_pointer_cast<const KelMediaLib::FileRepresentation>(v.media);
            if (!file) return py::none();
            return py::str(file->fileName());
          })
      .def_property_readonly("parameters",
                             [](const MediaView& v) {
                               std::vector<ParameterView> list;
                               for (const auto& p : v.media->parameters()) {
                                 list.push_back(ParameterView{v.project, v.media, p});
                               }
                               return list;
                             })
      .def("__getitem__",
           [](const MediaView& v, const std::string& name) {
             return parameterOf(v.project, v.media, name);
           })
      .def("__contains__",
           [](const MediaView& v, const std::string& name) {
             return static_cast<bool>(v.media->parameterNamed(name));
           })
      .def(
          "clone",
          [](const MediaView& v) {
            return MediaView{v.project, boost::shared_ptr<const Media>(v.media->cloneMedia())};
          },
          "A copy with copies of the key frames, on no track.")
      .def(
          "move",
          [](const MediaView& v, long long delta) {
            run(v.project, KelMediaLib::MoveMediaCmd::create(trackOf(v), v.media, delta));
          },
          py::arg("delta"), "Moves the media along its track by `delta` timeline units.")
      .def(
          "remove",
          [](const MediaView& v) {
            run(v.project, KelMediaLib::RemoveMediaCmd::create(trackOf(v), v.media));
          },
          "Takes the media (and the media linked to it) off the timeline; its actions wait "
          "for it to come back.")
      .def_property_readonly("has_screen_metadata",
                             [](const MediaView& v) {
                               const auto video =
                                   boost::dynamic_pointer_cast<const KelMediaLib::VMFile>(v.media);
                               if (!video) return false;
                               const auto metaData = video->screenMetaData()->value();
                               return metaData && metaData->hasContent();
                             })
      .def_property_readonly("screen_metadata_files", &metadataFiles,
                             "The metadata files of a recording, by parameter name.")
      .def("set_screen_metadata", &setScreenMetadata, py::kw_only(),
           py::arg("windows") = py::none(), py::arg("locations") = py::none(),
           py::arg("actions") = py::none(), py::arg("dirty") = py::none(),
           "Reads a screen recording's metadata files (front windows, cursor locations, "
           "cursor actions, changed rectangles; names relative to the recording's folder) "
           "and sets them, as one undoable edit.")
      .def("__eq__", [](const MediaView& a, const MediaView& b) { return a.media == b.media; })
      .def("__hash__", [](const MediaView& v) { return std::hash<const void*>()(v.media.get()); })
      .def("__repr__", [](const MediaView& v) {
        const auto r = v.media->range();
        return "<orvmedialib.Media " + kindOf(*v.media) + " at " + std::to_string(r.start) + "+" +
               std::to_string(r.duration) + ">";
      });

  py::class_<SourceView>(m, "Source", "A file loaded into the project's source bin.")
      .def_property_readonly(
          "path", [](const SourceView& v) { return v.source->mediaFileStats()->filename(); })
      .def_property_readonly(
          "media", [](const SourceView& v) { return mediaList(v.project, v.source->media()); },
          "One media per track of the file; put clones of them on tracks.")
      .def("__eq__", [](const SourceView& a, const SourceView& b) { return a.source == b.source; })
      .def("__hash__", [](const SourceView& v) { return std::hash<const void*>()(v.source.get()); })
      .def("__repr__", [](const SourceView& v) {
        return "<orvmedialib.Source " + v.source->mediaFileStats()->filename() + ">";
      });
}

}  // namespace orvpython
