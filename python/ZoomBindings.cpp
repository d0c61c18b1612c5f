// Automatic zoom: the engine's input and answers, the reference engine, engines
// written in Python (subclasses of `Zoomdrift`), and the zoom commands as
// methods of the project.

#include "Bindings.h"

#include "actions/ActionBin.h"
#include "commands/ReplaceActionWithZoomdriftAtTimeCmd.h"
#include "commands/ZoomdriftAddActionAtTimeCmd.h"
#include "commands/ZoomdriftAddActionsCmd.h"
#include "commands/ZoomdriftAddActionsWithKeyFramesCmd.h"
#include "core/Attribute.h"
#include "media/media/VMFile.h"
#include "media/timeline/Timeline.h"
#include "media/timeline/VisualMixer.h"
#include "zoomdrift/FollowEngine.h"
#include "zoomdrift/Params.h"
#include "zoomdrift/Zoomdrift.h"
#include "zoomdrift/ZoomdriftCmdUtil.h"
#include "zoomdrift/ZoomdriftException.h"

#include <pybind11/stl.h>

#include <cmath>
#include <set>

namespace orvpython {
namespace {

using ZoomdriftNS::FollowEngine;
using ZoomdriftNS::Params;
using ZoomdriftNS::Rectangle;
using ZoomdriftNS::ZD_TIME_RECT;
using ZoomdriftNS::Zoomdrift;

typedef std::unique_ptr<std::vector<ZD_TIME_RECT>> KeyFrames;

py::list toPython(const std::vector<ZD_TIME_RECT>& records) {
  py::list list;
  for (const auto& record : records) {
    list.append(py::make_tuple(record.time, record.rect));
  }
  return list;
}

std::vector<ZD_TIME_RECT> timeRects(const py::iterable& records) {
  std::vector<ZD_TIME_RECT> list;
  for (const auto& item : records) {
    const auto pair = item.cast<std::tuple<long long, Rectangle>>();
    list.push_back(ZD_TIME_RECT{std::get<0>(pair), std::get<1>(pair)});
  }
  return list;
}

// An engine written in Python: the virtual functions call the subclass's
// `keyframes` and `keyframe_at`. A `ZoomError` that the subclass raises
// becomes the library's engine failure, so that the commands treat it as they
// treat the reference engine's.
class PythonEngine : public Zoomdrift {
 public:
  KeyFrames calcZoomdriftKeyframes(Params const& params, long) override {
    py::gil_scoped_acquire gil;
    return answer("keyframes", [&](const py::function& f) { return f(params); });
  }
  KeyFrames calcZoomdriftKeyframeAtTime(Params const& params, long long time) override {
    py::gil_scoped_acquire gil;
    return answer("keyframe_at", [&](const py::function& f) { return f(params, time); });
  }

 private:
  template <class Call>
  KeyFrames answer(const char* name, const Call& call) {
    const py::function override = py::get_override(static_cast<const Zoomdrift*>(this), name);
    if (!override) {
      throw py::type_error(std::string("a Zoomdrift subclass must define ") + name);
    }
    py::object records;
    try {
      records = call(override);
    } catch (py::error_already_set& e) {
      if (!e.matches(zoomErrorType())) {
        throw;
      }
      const py::object code = py::getattr(e.value(), "code", py::none());
      throw ZoomdriftNS::ZoomdriftException(
          py::str(e.value()),
          code.is_none() ? ZoomdriftNS::ZDERR_BAD_SETTING : code.cast<ZoomdriftNS::ZDERR_CODES>());
    }
    return KeyFrames(new std::vector<ZD_TIME_RECT>(timeRects(records)));
  }
};

// Keeps the Python object of an engine alive for as long as a command holds
// the engine, so that an engine made in Python may be dropped by the script.
struct PythonOwner {
  py::object engine;
  void operator()(Zoomdrift*) {
    py::gil_scoped_acquire gil;
    engine = py::object();
  }
  explicit PythonOwner(py::object held) : engine(std::move(held)) {}
  PythonOwner(const PythonOwner& other) {
    py::gil_scoped_acquire gil;
    engine = other.engine;
  }
  PythonOwner& operator=(const PythonOwner&) = delete;
  ~PythonOwner() {
    if (engine) {
      py::gil_scoped_acquire gil;
      engine = py::object();
    }
  }
};

boost::shared_ptr<Zoomdrift> engineOf(const py::object& engine) {
  if (engine.is_none()) {
    return FollowEngine::create();
  }
  return boost::shared_ptr<Zoomdrift>(engine.cast<Zoomdrift*>(), PythonOwner(engine));
}

boost::shared_ptr<const KelMediaLib::VMFile> recordingOf(const MediaView& media) {
  const auto video = boost::dynamic_pointer_cast<const KelMediaLib::VMFile>(media.media);
  if (!video) {
    throw py::type_error("automatic zoom needs a screen recording (a VMFile)");
  }
  return video;
}

// One second of the project's rate when the caller gives no fade.
long long fadeOf(const ProjectPtr& project, const py::object& fade) {
  if (!fade.is_none()) {
    return fade.cast<long long>();
  }
  const auto rate = project->editRate();
  return static_cast<long long>(
      std::llround(static_cast<double>(rate.numerator()) / rate.denominator()));
}

// The picture that a zoom fills: the project's canvas unless given.
std::pair<int, int> canvasOf(const ProjectPtr& project, const py::object& canvas) {
  if (!canvas.is_none()) {
    return canvas.cast<std::pair<int, int>>();
  }
  const auto mixer = project->timeline()->visualMixer();
  if (!mixer) {
    throw py::value_error("the project has no canvas: give canvas=(width, height)");
  }
  return {static_cast<int>(mixer->attributeWidth()->value()),
          static_cast<int>(mixer->attributeHeight()->value())};
}

boost::shared_ptr<const OrvMediaLib::ActionBin> binOf(const ProjectPtr& project,
                                                      const py::object& bin) {
  return bin.is_none() ? project->zdActionBin() : bin.cast<ActionBinView>().bin;
}

// Runs a zoom command and returns the actions that it added to the bin.
template <class Command>
py::list zoom(const ProjectPtr& project, const boost::shared_ptr<const KelMediaLib::Media>& media,
              const boost::shared_ptr<const OrvMediaLib::ActionBin>& bin,
              const boost::shared_ptr<Command>& command) {
  std::set<const OrvMediaLib::Action*> before;
  // The lists are held: a loop must not outlive the list it walks.
  const auto old = bin->mediasActions(media);
  for (const auto& action : *old) {
    before.insert(action.get());
  }
  run(project, command);
  py::list added;
  const auto now = bin->mediasActions(media);
  for (const auto& action : *now) {
    if (!before.count(action.get())) {
      added.append(actionObject(project, action));
    }
  }
  return added;
}

}  // namespace

void bindZoom(py::module_& m) {
  py::class_<Rectangle>(m, "Rectangle",
                        "A rectangle of a recording's screen in pixels, origin at the top "
                        "left; `right` and `bottom` are exclusive.")
      .def(py::init([](int left, int top, int right, int bottom) {
             return Rectangle{left, right, top, bottom};
           }),
           py::arg("left"), py::arg("top"), py::arg("right"), py::arg("bottom"))
      .def_readwrite("left", &Rectangle::left)
      .def_readwrite("top", &Rectangle::top)
      .def_readwrite("right", &Rectangle::right)
      .def_readwrite("bottom", &Rectangle::bottom)
      .def_property_readonly("width", [](const Rectangle& r) { return r.right - r.left; })
      .def_property_readonly("height", [](const Rectangle& r) { return r.bottom - r.top; })
      .def("__eq__",
           [](const Rectangle& a, const Rectangle& b) {
             return a.left == b.left && a.right == b.right && a.top == b.top &&
                    a.bottom == b.bottom;
           })
      .def("__repr__", [](const Rectangle& r) {
        return "Rectangle(left=" + std::to_string(r.left) + ", top=" + std::to_string(r.top) +
               ", right=" + std::to_string(r.right) + ", bottom=" + std::to_string(r.bottom) + ")";
      });

  py::class_<Params>(m, "ZoomParams",
                     "What an automatic zoom engine is given: the recording's activity as "
                     "records at recording times (`time_scale` units a second) and the size "
                     "of the picture to fill. Rectangle records are (time, Rectangle).")
      .def(py::init<>())
      .def_property(
          "target_size",
          [](const Params& p) { return py::make_tuple(p.targetWidth(), p.targetHeight()); },
          [](Params& p, std::pair<int, int> size) {
            p.setTargetWidth(size.first);
            p.setTargetHeight(size.second);
          })
      .def_property("time_scale", &Params::timeScale, &Params::setTimeScale)
      .def_property("fade_duration", &Params::fadeDuration, &Params::setFadeDuration)
      .def_property(
          "clip", [](const Params& p) { return py::make_tuple(p.clipStart(), p.clipStop()); },
          [](Params& p, std::pair<long long, long long> clip) {
            p.setClipInterval(clip.first, clip.second);
          },
          "[start, stop) of the recording shown; stop not after start: all of it.")
      .def_property(
          "cursor_locations",
          [](const Params& p) {
            py::list list;
            for (const auto& l : p.cursorLocations()) list.append(py::make_tuple(l.time, l.x, l.y));
            return list;
          },
          [](Params& p, const std::vector<std::tuple<long long, int, int>>& records) {
            p.cursorLocations().clear();
            for (const auto& r : records) {
              p.cursorLocations().push_back(
                  ZoomdriftNS::ZD_MOUSE_LOCATION{std::get<0>(r), std::get<1>(r), std::get<2>(r)});
            }
          },
          "(time, x, y) records.")
      .def_property(
          "cursor_actions",
          [](const Params& p) {
            py::list list;
            for (const auto& a : p.cursorActions()) list.append(py::make_tuple(a.time, a.action));
            return list;
          },
          [](Params& p, const std::vector<std::pair<long long, int>>& records) {
            p.cursorActions().clear();
            for (const auto& r : records) {
              p.cursorActions().push_back(ZoomdriftNS::ZD_MOUSE_ACTION{r.first, r.second});
            }
          },
          "(time, event) records, one per button event.")
      .def_property(
          "fore_windows", [](const Params& p) { return toPython(p.foreWindows()); },
          [](Params& p, const py::iterable& r) { p.foreWindows() = timeRects(r); })
      .def_property(
          "dirty_rects", [](const Params& p) { return toPython(p.dirtyRects()); },
          [](Params& p, const py::iterable& r) { p.dirtyRects() = timeRects(r); })
      .def_property(
          "recording_regions", [](const Params& p) { return toPython(p.recordingRegions()); },
          [](Params& p, const py::iterable& r) { p.recordingRegions() = timeRects(r); });

  py::class_<Zoomdrift, PythonEngine, boost::shared_ptr<Zoomdrift>>(
      m, "Zoomdrift",
      "An automatic zoom engine. Subclass it in Python and define keyframes(params), "
      "returning [(time, Rectangle)] in time order (each time the moment a rectangle fills "
      "the view), and keyframe_at(params, time), returning [(time, Rectangle)] whose first "
      "record is the rectangle in force at `time`. Raise ZoomError to refuse.")
      .def(py::init<>())
      .def(
          "keyframes",
          [](Zoomdrift& engine, const Params& params) {
            return toPython(*engine.calcZoomdriftKeyframes(params, 0));
          },
          py::arg("params"))
      .def(
          "keyframe_at",
          [](Zoomdrift& engine, const Params& params, long long time) {
            return toPython(*engine.calcZoomdriftKeyframeAtTime(params, time));
          },
          py::arg("params"), py::arg("time"));

  py::class_<FollowEngine, Zoomdrift, boost::shared_ptr<FollowEngine>>(
      m, "FollowEngine",
      "The library's engine: the view follows the user's clicks, typing and windows. "
      "Durations in seconds.")
      .def(py::init([](double zoom, double idle, double hold, double margin) {
             FollowEngine::Settings settings;
             settings.zoom = zoom;
             settings.idleSeconds = idle;
             settings.holdSeconds = hold;
             settings.marginFraction = margin;
             return FollowEngine::create(settings);
           }),
           py::kw_only(), py::arg("zoom") = 2.0, py::arg("idle") = 3.0, py::arg("hold") = 0.5,
           py::arg("margin") = 0.15)
      .def_property_readonly("zoom", [](const FollowEngine& e) { return e.settings().zoom; })
      .def_property_readonly("idle", [](const FollowEngine& e) { return e.settings().idleSeconds; })
      .def_property_readonly("hold", [](const FollowEngine& e) { return e.settings().holdSeconds; })
      .def_property_readonly("margin",
                             [](const FollowEngine& e) { return e.settings().marginFraction; });

  auto media = py::reinterpret_borrow<py::class_<MediaView>>(m.attr("Media"));
  media.def(
      "zoom_params",
      [](const MediaView& v, const py::object& fade) {
        Params params;
        ZoomdriftNS::ZoomdriftCmdUtil::genZoomdriftParams(recordingOf(v), &params,
                                                          fadeOf(v.project, fade));
        return params;
      },
      py::arg("fade") = py::none(),
      "What an engine is given for this recording, with a fade of `fade` edit units.");

  auto project = py::reinterpret_borrow<py::class_<ProjectView>>(m.attr("Project"));
  project
      .def(
          "auto_zoom",
          [](const ProjectView& v, const MediaView& media, const py::object& engine,
             const py::object& fade, const py::object& canvas, const py::object& bin) {
            const auto size = canvasOf(v.project, canvas);
            const auto target = binOf(v.project, bin);
            return zoom(v.project, media.media, target,
                        OrvMediaLib::ZoomdriftAddActionsCmd::create(
                            recordingOf(media), engineOf(engine), fadeOf(v.project, fade), target,
                            size.first, size.second));
          },
          py::arg("media"), py::arg("engine") = py::none(), py::kw_only(),
          py::arg("fade") = py::none(), py::arg("canvas") = py::none(), py::arg("bin") = py::none(),
          "Automatic zoom over a whole recording: the engine's key frames (the reference "
          "engine's by default) become zoom actions in the zoom bin, as one undoable edit. "
          "`fade` (edit units, default one second) is how long each zoom takes to arrive; "
          "`canvas` is the picture size (default the project's canvas). Returns the actions.")
      .def(
          "zoom_at",
          [](const ProjectView& v, const MediaView& media, long long time, const py::object& engine,
             const py::object& fade, const py::object& canvas, const py::object& bin) {
            const auto size = canvasOf(v.project, canvas);
            const auto target = binOf(v.project, bin);
            return zoom(v.project, media.media, target,
                        OrvMediaLib::ZoomdriftAddActionAtTimeCmd::create(
                            recordingOf(media), engineOf(engine), time, fadeOf(v.project, fade),
                            target, size.first, size.second));
          },
          py::arg("media"), py::arg("time"), py::arg("engine") = py::none(), py::kw_only(),
          py::arg("fade") = py::none(), py::arg("canvas") = py::none(), py::arg("bin") = py::none(),
          "One zoom action over (time, fade) of the media's own time, to the rectangle the "
          "engine gives for `time + fade`. Returns the actions added.")
      .def(
          "zoom_with_key_frames",
          [](const ProjectView& v, const MediaView& media, const py::iterable& keyFrames,
             const py::object& fade, const py::object& canvas, const py::object& bin) {
            const auto size = canvasOf(v.project, canvas);
            const auto target = binOf(v.project, bin);
            return zoom(v.project, media.media, target,
                        OrvMediaLib::ZoomdriftAddActionsWithKeyFramesCmd::create(
                            recordingOf(media),
                            KeyFrames(new std::vector<ZD_TIME_RECT>(timeRects(keyFrames))),
                            fadeOf(v.project, fade), target, size.first, size.second));
          },
          py::arg("media"), py::arg("key_frames"), py::kw_only(), py::arg("fade") = py::none(),
          py::arg("canvas") = py::none(), py::arg("bin") = py::none(),
          "Zoom actions from key frames [(recording time, Rectangle)] the caller has.")
      .def(
          "replace_with_zoom",
          [](const ProjectView& v, const ActionView& action, const py::object& engine,
             const py::object& canvas, const py::object& bin) {
            const auto size = canvasOf(v.project, canvas);
            const auto target = binOf(v.project, bin);
            const auto media = boost::dynamic_pointer_cast<const KelMediaLib::VMFile>(
                boost::dynamic_pointer_cast<const KelMediaLib::Media>(action.action->parametric()));
            return zoom(
                v.project, media, target,
                OrvMediaLib::ReplaceActionWithZoomdriftAtTimeCmd::create(
                    action.action, media, engineOf(engine), target, size.first, size.second));
          },
          py::arg("action"), py::arg("engine") = py::none(), py::kw_only(),
          py::arg("canvas") = py::none(), py::arg("bin") = py::none(),
          "Puts a fresh automatic zoom in the place of an action.");
}

}  // namespace orvpython
