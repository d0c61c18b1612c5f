// Parameters as sequences of key frames `(time, value, interpolater)`, and
// their edits as commands of the project's history.

#include "Bindings.h"

#include "core/KelMediaLibException.h"
#include "media/commands/MoveParameterKeyFrameCmd.h"
#include "values/AddParameterKeyFrameCmd.h"
#include "values/ChangeParameterKeyFrameCmd.h"
#include "values/Interpolater.h"
#include "values/Parameter.h"
#include "values/Parametric.h"
#include "values/Point.h"
#include "values/RemoveParameterKeyFrameCmd.h"

#include <pybind11/stl.h>

#include <boost/make_shared.hpp>

#include <sstream>

namespace orvpython {
namespace {

using KelMediaLib::Parameter;

typedef boost::shared_ptr<KelMediaLib::Interpolater<double>> InterpolaterPtr;
typedef Parameter<InterpolaterPtr> InterpolaterParameter;

// The key frame commands take a media's own time and map it onto the
// parameter's axis through the parametric they are given. Python speaks in
// parameter times already, so the commands get a parametric whose mapping is
// the identity.
boost::shared_ptr<const KelMediaLib::Parametric> parameterAxis() {
  static const auto axis = boost::make_shared<const KelMediaLib::Parametric>();
  return axis;
}

// Conversions between the values of a parameter and Python objects. Points
// are (x, y, z) tuples.
py::object toPython(double value) {
  return py::float_(value);
}
py::object toPython(float value) {
  return py::float_(value);
}
py::object toPython(int value) {
  return py::int_(value);
}
py::object toPython(const std::string& value) {
  return py::str(value);
}
py::object toPython(const KelMediaLib::Point& p) {
  return py::make_tuple(p.x, p.y, p.z);
}

template <class T>
T fromPython(const py::handle& value) {
  return value.cast<T>();
}
template <>
KelMediaLib::Point fromPython<KelMediaLib::Point>(const py::handle& value) {
  const auto xyz = value.cast<std::tuple<double, double, double>>();
  return KelMediaLib::Point(std::get<0>(xyz), std::get<1>(xyz), std::get<2>(xyz));
}

InterpolaterPtr interpolaterNamed(const std::string& name) {
  std::istringstream in(name);
  InterpolaterPtr interpolater;
  try {
    in >> interpolater;
  } catch (const KelMediaLib::KelMediaLibException&) {
    // A name a script mistyped: Python's error for a bad argument.
  }
  if (!in || !interpolater) {
    throw py::value_error("unknown interpolater \"" + name +
                          "\" (linr, left, esIn, esOt, eios, eioe)");
  }
  return interpolater;
}

// The name of the interpolater that mixes from the key frame at `time`
// towards the next; None where the parameter doesn't interpolate.
py::object interpolaterAt(const Parameter<double>& parameter, long long time) {
  const auto companion = parameter.interpolaterParameter();
  if (!companion) {
    return py::none();
  }
  const InterpolaterPtr interpolater = companion->valueAt(static_cast<double>(time));
  return interpolater ? py::object(py::str(interpolater->name())) : py::object(py::none());
}
template <class T>
py::object interpolaterAt(const Parameter<T>&, long long) {
  return py::none();
}

// Adds the key frame, or changes the one standing at `time`.
template <class T>
void setValue(const ProjectPtr& project, const boost::shared_ptr<Parameter<T>>& parameter,
              long long time, const T& value) {
  const boost::shared_ptr<const Parameter<T>> constant = parameter;
  if (parameter->hasKeyFrameAt(time)) {
    run(project, boost::make_shared<KelMediaLib::RemoveParameterKeyFrameCmd<Parameter<T>>>(
                     parameterAxis(), constant, time));
  }
  run(project, boost::make_shared<KelMediaLib::AddParameterKeyFrameCmd<Parameter<T>>>(constant,
                                                                                      time, value));
}
// A changed double keeps its key frame object, which an action's range may hold.
template <>
void setValue<double>(const ProjectPtr& project,
                      const boost::shared_ptr<Parameter<double>>& parameter, long long time,
                      const double& value) {
  const boost::shared_ptr<const Parameter<double>> constant = parameter;
  if (parameter->hasKeyFrameAt(time)) {
    run(project, KelMediaLib::ChangeParameterKeyFrameCmd<Parameter<double>>::create(
                     parameterAxis(), constant, time, value));
  } else {
    run(project, boost::make_shared<KelMediaLib::AddParameterKeyFrameCmd<Parameter<double>>>(
                     constant, time, value));
  }
}

void setInterpolater(const ProjectPtr& project, const Parameter<double>& parameter, long long time,
                     const std::string& name) {
  const boost::shared_ptr<const InterpolaterParameter> companion =
      parameter.interpolaterParameter();
  if (!companion) {
    throw py::value_error("parameter \"" + parameter.name() + "\" doesn't interpolate");
  }
  setValue<InterpolaterPtr>(project, boost::const_pointer_cast<InterpolaterParameter>(companion),
                            time, interpolaterNamed(name));
}
template <class T>
void setInterpolater(const ProjectPtr&, const Parameter<T>& parameter, long long,
                     const std::string&) {
  throw py::value_error("parameter \"" + parameter.name() + "\" doesn't interpolate");
}

// Runs `work` with the parameter at its C++ type.
template <class Work>
auto visit(const ParameterView& view, Work&& work) {
  const auto& any = view.parameter;
  if (auto p = boost::dynamic_pointer_cast<Parameter<double>>(any)) return work(p);
  if (auto p = boost::dynamic_pointer_cast<Parameter<float>>(any)) return work(p);
  if (auto p = boost::dynamic_pointer_cast<Parameter<int>>(any)) return work(p);
  if (auto p = boost::dynamic_pointer_cast<Parameter<std::string>>(any)) return work(p);
  if (auto p = boost::dynamic_pointer_cast<Parameter<KelMediaLib::Point>>(any)) return work(p);
  throw py::type_error("parameter \"" + any->name() + "\" holds values that Python can't use");
}

template <class T>
py::tuple keyFrameTuple(const Parameter<T>& parameter, const KelMediaLib::KeyFrame<T>& frame) {
  return py::make_tuple(frame.time(), toPython(frame.value()),
                        interpolaterAt(parameter, frame.time()));
}

py::list keyFrames(const ParameterView& view) {
  return visit(view, [](const auto& parameter) {
    py::list frames;
    for (const auto& frame : parameter->keyFrames()) {
      frames.append(keyFrameTuple(*parameter, *frame));
    }
    return frames;
  });
}

void set(const ParameterView& view, long long time, const py::object& value,
         const py::object& interpolater) {
  asOneEdit(view.project, [&] {
    visit(view, [&](const auto& parameter) {
      typedef typename std::decay_t<decltype(*parameter)>::value_type Value;
      setValue<Value>(view.project, parameter, time, fromPython<Value>(value));
      if (!interpolater.is_none()) {
        setInterpolater(view.project, *parameter, time, interpolater.cast<std::string>());
      }
    });
  });
}

void remove(const ParameterView& view, long long time) {
  visit(view, [&](const auto& parameter) {
    typedef std::decay_t<decltype(*parameter)> Kind;
    run(view.project, boost::make_shared<KelMediaLib::RemoveParameterKeyFrameCmd<Kind>>(
                          parameterAxis(), boost::shared_ptr<const Kind>(parameter), time));
  });
}

}  // namespace

void bindParameters(py::module_& m) {
  py::class_<ParameterView>(m, "Parameter",
                            "An animated property of a media: a sequence of key frames "
                            "(time, value, interpolater), in time order. Times are on the "
                            "parameter's axis (source time of the media, in edit units); every "
                            "edit is a command of the project's history.")
      .def_property_readonly("name", [](const ParameterView& v) { return v.parameter->name(); })
      .def_property_readonly("key_frames", &keyFrames)
      .def_property_readonly("times",
                             [](const ParameterView& v) { return v.parameter->keyFrameTimes(); })
      .def_property_readonly("interpolating",
                             [](const ParameterView& v) {
                               const auto p =
                                   boost::dynamic_pointer_cast<Parameter<double>>(v.parameter);
                               return p && p->interpolaterParameter();
                             })
      .def_property_readonly("default",
                             [](const ParameterView& v) {
                               return visit(
                                   v, [](const auto& p) { return toPython(p->defaultValue()); });
                             })
      .def("__len__", [](const ParameterView& v) { return v.parameter->numKeyFrames(); })
      .def("__iter__", [](const ParameterView& v) { return py::iter(keyFrames(v)); })
      .def("__getitem__",
           [](const ParameterView& v, long index) -> py::object {
             py::list frames = keyFrames(v);
             const long size = static_cast<long>(frames.size());
             if (index < -size || index >= size) {
               throw py::index_error("key frame index out of range");
             }
             return frames[index < 0 ? index + size : index];
           })
      .def(
          "at",
          [](const ParameterView& v, long long time) -> py::object {
            return visit(v, [time](const auto& p) -> py::object {
              const auto frame = p->keyFrame(time);
              return frame ? py::object(keyFrameTuple(*p, *frame)) : py::object(py::none());
            });
          },
          py::arg("time"), "The key frame at `time`, or None.")
      .def(
          "value_at",
          [](const ParameterView& v, double time) {
            return visit(v, [time](const auto& p) { return toPython(p->valueAt(time)); });
          },
          py::arg("time"), "The value at `time`, interpolated between key frames.")
      .def("set", &set, py::arg("time"), py::arg("value"), py::arg("interpolater") = py::none(),
           "Adds a key frame at `time`, or changes the value of the one there; with an "
           "interpolater name (linr, left, esIn, esOt, eios, eioe), the mix from this key "
           "frame on. One undoable edit.")
      .def("remove", &remove, py::arg("time"), "Removes the key frame at `time`.")
      .def(
          "move",
          [](const ParameterView& v, long long from, long long to) {
            run(v.project,
                KelMediaLib::MoveParameterKeyFrameCmd::create(v.owner, v.parameter, from, to));
          },
          py::arg("from_time"), py::arg("to_time"), "Moves the key frame at `from_time`.")
      .def("__eq__", [](const ParameterView& a,
                        const ParameterView& b) { return a.parameter == b.parameter; })
      .def("__hash__",
           [](const ParameterView& v) { return std::hash<const void*>()(v.parameter.get()); })
      .def("__repr__", [](const ParameterView& v) {
        return "<orvmedialib.Parameter " + v.parameter->name() + " with " +
               std::to_string(v.parameter->numKeyFrames()) + " key frames>";
      });
}

}  // namespace orvpython
