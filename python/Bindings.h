#pragma once

// What the binding files share: the boost holder, the views through which
// Python reaches into a project, and the entry points of each file.
//
// Every object that Python gets from a project is a view: the object and the
// project it belongs to, both held by shared pointer. A view therefore keeps
// its project alive however long Python keeps it, and the model never holds a
// view, so no reference cycle runs through Python. Views compare equal when
// they show the same object; `is` is not identity.

#include "project/OrvProject.h"

#include <pybind11/pybind11.h>

#include <boost/shared_ptr.hpp>

#include <functional>
#include <string>

PYBIND11_DECLARE_HOLDER_TYPE(T, boost::shared_ptr<T>)

namespace KelMediaLib {
class Command;
class Media;
class ParameterInterface;
class Parametric;
class Source;
class Track;
}  // namespace KelMediaLib

namespace OrvMediaLib {
class Action;
class ActionBin;
class OrvCommand;
}  // namespace OrvMediaLib

namespace orvpython {

namespace py = pybind11;

typedef boost::shared_ptr<OrvMediaLib::OrvProject> ProjectPtr;

/// A project as Python holds it.
struct ProjectView {
  ProjectPtr project;
};

struct TrackView {
  ProjectPtr project;
  boost::shared_ptr<const KelMediaLib::Track> track;
};

struct MediaView {
  ProjectPtr project;
  boost::shared_ptr<const KelMediaLib::Media> media;
};

struct SourceView {
  ProjectPtr project;
  boost::shared_ptr<const KelMediaLib::Source> source;
};

/// A parameter of a media (or of another parametric owner). Times are on the
/// parameter's own axis, the one its key frames lie on.
struct ParameterView {
  ProjectPtr project;
  boost::shared_ptr<const KelMediaLib::Parametric> owner;
  boost::shared_ptr<KelMediaLib::ParameterInterface> parameter;
};

struct ActionBinView {
  ProjectPtr project;
  boost::shared_ptr<const OrvMediaLib::ActionBin> bin;
};

struct ActionView {
  ProjectPtr project;
  boost::shared_ptr<const OrvMediaLib::Action> action;
};

/// Runs `edits` so that what they execute is one entry of the history. If
/// they throw, the entries they made are undone and the exception goes on.
void asOneEdit(const ProjectPtr& project, const std::function<void()>& edits);

/// Executes a command of either model as one entry of the project's history.
void run(const ProjectPtr& project, const boost::shared_ptr<KelMediaLib::Command>& command);
void run(const ProjectPtr& project, const boost::shared_ptr<OrvMediaLib::OrvCommand>& command);

py::object mediaObject(const ProjectPtr& project,
                       const boost::shared_ptr<const KelMediaLib::Media>& media);
py::object actionObject(const ProjectPtr& project,
                        const boost::shared_ptr<const OrvMediaLib::Action>& action);

/// The parameter of `media` called `name` (members of vectors too: "scale0");
/// KeyError when there is none.
ParameterView parameterOf(const ProjectPtr& project,
                          const boost::shared_ptr<const KelMediaLib::Media>& media,
                          const std::string& name);

/// Adds an action to `bin` (the project's main bin when None); `ranges` are
/// (parameter, value[, transform[, modifier]]) tuples.
ActionView addAction(const ProjectPtr& project, const MediaView& media, long long start,
                     long long duration, const py::iterable& ranges, bool edge,
                     const py::object& bin);

/// Reads a project file; the handlers are Python callables or None.
ProjectView loadProject(const py::object& path, const py::object& onMissing,
                        const py::object& onChanged);

/// The class of `orvmedialib.ZoomError`.
py::handle zoomErrorType();

void bindErrors(py::module_& m);
void bindProject(py::module_& m);
void bindTimeline(py::module_& m);
void bindParameters(py::module_& m);
void bindActions(py::module_& m);
void bindZoom(py::module_& m);
void bindJobs(py::module_& m);

}  // namespace orvpython
