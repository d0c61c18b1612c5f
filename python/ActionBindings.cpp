// Actions and action bins: bins are iterable, actions carry their ranges and
// are edited by methods that run the action commands.

#include "Bindings.h"

#include "actions/Action.h"
#include "actions/ActionBin.h"
#include "actions/CenterAction.h"
#include "actions/FadeInModifier.h"
#include "actions/IdentityTransform.h"
#include "actions/ModifiedToOrig.h"
#include "actions/OrigToModified.h"
#include "actions/ParameterRange.h"
#include "actions/PureScaleTransform.h"
#include "actions/RestoreModifier.h"
#include "actions/ScaleTransform.h"
#include "actions/SetTransform.h"
#include "actions/TranslateTransform.h"
#include "commands/AddActionCmd.h"
#include "commands/MoveActionCmd.h"
#include "commands/RemoveActionCmd.h"
#include "commands/TrimActionEndCmd.h"
#include "commands/TrimActionStartCmd.h"
#include "media/media/Media.h"
#include "media/timeline/Timeline.h"
#include "project/InternalOrvProject.h"
#include "values/Parameter.h"

#include <pybind11/stl.h>

#include <memory>

namespace orvpython {
namespace {

using OrvMediaLib::Action;
using OrvMediaLib::ActionBin;

struct RangeView {
  ProjectPtr project;
  boost::shared_ptr<const Action> action;
  boost::shared_ptr<const OrvMediaLib::ParameterRange> range;
};

std::unique_ptr<OrvMediaLib::Modifier> modifierNamed(const std::string& name) {
  if (name == "orig_to_modified") return std::make_unique<OrvMediaLib::OrigToModified>();
  if (name == "modified_to_orig") return std::make_unique<OrvMediaLib::ModifiedToOrig>();
  if (name == "fade_in") return std::make_unique<OrvMediaLib::FadeInModifier>();
  if (name == "restore") return std::make_unique<OrvMediaLib::RestoreModifier>();
  throw py::value_error("unknown modifier \"" + name +
                        "\" (orig_to_modified, modified_to_orig, fade_in, restore)");
}

std::unique_ptr<OrvMediaLib::Transform> transformNamed(const std::string& name) {
  if (name == "set") return std::make_unique<OrvMediaLib::SetTransform>();
  if (name == "scale") return std::make_unique<OrvMediaLib::ScaleTransform>();
  if (name == "pure_scale") return std::make_unique<OrvMediaLib::PureScaleTransform>();
  if (name == "translate") return std::make_unique<OrvMediaLib::TranslateTransform>();
  if (name == "identity") return std::make_unique<OrvMediaLib::IdentityTransform>();
  throw py::value_error("unknown transform \"" + name +
                        "\" (set, scale, pure_scale, translate, identity)");
}

// A range is (parameter, value[, transform[, modifier]]).
OrvMediaLib::ActionDescription::RangeDescription rangeDescription(const py::handle& item) {
  const auto fields = item.cast<py::tuple>();
  if (fields.size() < 2 || fields.size() > 4) {
    throw py::value_error(
        "a range is (parameter, value[, transform[, modifier]]), e.g. ('opacity', 1.0)");
  }
  const auto transform = transformNamed(fields.size() > 2 ? fields[2].cast<std::string>() : "set");
  const auto modifier =
      modifierNamed(fields.size() > 3 ? fields[3].cast<std::string>() : "orig_to_modified");
  return OrvMediaLib::ActionDescription::RangeDescription(fields[0].cast<std::string>(), *modifier,
                                                          *transform, fields[1].cast<double>());
}

boost::shared_ptr<const KelMediaLib::Media> mediaOf(const Action& action) {
  return boost::dynamic_pointer_cast<const KelMediaLib::Media>(action.parametric());
}

py::list actionList(const ProjectPtr& project, const OrvMediaLib::ActionList& actions) {
  py::list list;
  for (const auto& action : actions) {
    list.append(actionObject(project, action));
  }
  return list;
}

// Every action of the bin, media by media in timeline order, each media's in
// time order. The bin keeps them by media; the media of a bin's actions are
// on the timeline (those taken off wait in the graveyard).
py::list allActions(const ActionBinView& v) {
  py::list list;
  for (const auto& media : v.project->timeline()->allMedias()) {
    if (v.bin->hasMedia(media)) {
      list.attr("extend")(actionList(v.project, *v.bin->mediasActions(media)));
    }
  }
  return list;
}

py::object binOf(const ActionView& v) {
  const auto internal = boost::dynamic_pointer_cast<OrvMediaLib::InternalOrvProject>(v.project);
  const auto bin = internal ? internal->actionBinForAction(v.action) : nullptr;
  return bin ? py::cast(ActionBinView{v.project, bin}) : py::object(py::none());
}

py::tuple keyFrame(const boost::shared_ptr<const OrvMediaLib::ParameterRange::KeyFrameType>& k) {
  return py::make_tuple(k->time(), k->value());
}

}  // namespace

py::object actionObject(const ProjectPtr& project, const boost::shared_ptr<const Action>& action) {
  return action ? py::cast(ActionView{project, action}) : py::object(py::none());
}

ActionView addAction(const ProjectPtr& project, const MediaView& media, long long start,
                     long long duration, const py::iterable& ranges, bool edge,
                     const py::object& bin) {
  OrvMediaLib::ActionDescription description(edge ? OrvMediaLib::ActionDescription::EDGE_ACTION
                                                  : OrvMediaLib::ActionDescription::CENTER_ACTION);
  for (const auto& item : ranges) {
    description.addParameterRange(rangeDescription(item));
  }
  const auto target = bin.is_none() ? project->actionBin() : bin.cast<ActionBinView>().bin;
  const auto command =
      OrvMediaLib::AddActionCmd::create(media.media, target, description, start, duration);
  run(project, command);
  return ActionView{project, command->createdAction()};
}

void bindActions(py::module_& m) {
  py::class_<RangeView>(m, "ParameterRange",
                        "The part of an action that animates one parameter between two of "
                        "its key frames.")
      .def_property_readonly(
          "parameter",
          [](const RangeView& v) {
            return ParameterView{
                v.project, v.range->parametric(),
                boost::const_pointer_cast<KelMediaLib::Parameter<double>>(v.range->parameter())};
          })
      .def_property_readonly(
          "left", [](const RangeView& v) { return keyFrame(v.range->leftKeyframe()); },
          "The (time, value) of the key frame where the range starts.")
      .def_property_readonly(
          "right", [](const RangeView& v) { return keyFrame(v.range->rightKeyframe()); },
          "The (time, value) of the key frame where the range ends.");

  py::class_<ActionView>(m, "Action",
                         "A bounded stretch of a media's time during which parameters are "
                         "animated. `start` and `duration` are key frame times.")
      .def_property_readonly("start",
                             [](const ActionView& v) { return v.action->timeRange().start; })
      .def_property_readonly("duration",
                             [](const ActionView& v) { return v.action->timeRange().duration; })
      .def_property_readonly("end",
                             [](const ActionView& v) {
                               const auto r = v.action->timeRange();
                               return r.start + r.duration;
                             })
      .def_property_readonly("kind",
                             [](const ActionView& v) {
                               return dynamic_cast<const OrvMediaLib::CenterAction*>(v.action.get())
                                          ? "center"
                                          : "edge";
                             })
      .def_property_readonly(
          "media", [](const ActionView& v) { return mediaObject(v.project, mediaOf(*v.action)); })
      .def_property_readonly("bin", &binOf, "The bin that holds the action; None if none does.")
      .def_property_readonly("ranges",
                             [](const ActionView& v) {
                               std::vector<RangeView> list;
                               // Held here: the loop must not outlive the list it walks.
                               const auto ranges = v.action->parameterRanges();
                               for (const auto& range : *ranges) {
                                 list.push_back(RangeView{v.project, v.action, range});
                               }
                               return list;
                             })
      .def(
          "move",
          [](const ActionView& v, long long delta) {
            run(v.project, OrvMediaLib::MoveActionCmd::create(v.action, delta));
          },
          py::arg("delta"))
      .def(
          "trim_start",
          [](const ActionView& v, long long delta) {
            run(v.project, OrvMediaLib::TrimActionStartCmd::create(v.action, delta));
          },
          py::arg("delta"), "Moves the start `delta` later (negative: earlier).")
      .def(
          "trim_end",
          [](const ActionView& v, long long delta) {
            run(v.project, OrvMediaLib::TrimActionEndCmd::create(v.action, delta));
          },
          py::arg("delta"), "Moves the end `delta` earlier (negative: later).")
      .def("remove",
           [](const ActionView& v) {
             run(v.project, OrvMediaLib::RemoveActionCmd::create(v.action));
           })
      .def("__eq__", [](const ActionView& a, const ActionView& b) { return a.action == b.action; })
      .def("__hash__", [](const ActionView& v) { return std::hash<const void*>()(v.action.get()); })
      .def("__repr__", [](const ActionView& v) {
        const auto r = v.action->timeRange();
        return "<orvmedialib.Action at " + std::to_string(r.start) + "+" +
               std::to_string(r.duration) + ">";
      });

  py::class_<ActionBinView>(m, "ActionBin", "The actions of a project, by media.")
      .def("__len__", [](const ActionBinView& v) { return v.bin->numActions(); })
      .def("__iter__", [](const ActionBinView& v) { return py::iter(allActions(v)); })
      .def("__contains__",
           [](const ActionBinView& v, const ActionView& action) {
             return v.bin->containsAction(action.action);
           })
      .def(
          "actions_of",
          [](const ActionBinView& v, const MediaView& media) {
            return actionList(v.project, *v.bin->mediasActions(media.media));
          },
          py::arg("media"), "The media's actions in time order.")
      .def(
          "action_at",
          [](const ActionBinView& v, const MediaView& media, long long time) {
            return actionObject(v.project, v.bin->actionForMediaContainingTime(media.media, time));
          },
          py::arg("media"), py::arg("time"), "The media's action over `time`, or None.")
      .def("__eq__", [](const ActionBinView& a, const ActionBinView& b) { return a.bin == b.bin; })
      .def("__hash__", [](const ActionBinView& v) { return std::hash<const void*>()(v.bin.get()); })
      .def("__repr__", [](const ActionBinView& v) {
        return "<orvmedialib.ActionBin with " + std::to_string(v.bin->numActions()) + " actions>";
      });
}

}  // namespace orvpython
