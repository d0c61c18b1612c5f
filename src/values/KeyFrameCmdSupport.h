#pragma once

#include "core/KelMediaLibException.h"
#include "values/Parametric.h"

#include <boost/shared_ptr.hpp>

#include <cmath>
#include <ostream>
#include <string>

namespace KelMediaLib {

/// Helpers shared by the key frame and attribute commands: the mapping of a
/// command's time onto a parameter's axis, the checks that keep a blank
/// clone from running, and the trace forms of their XML.
namespace keyFrameCmd {

/// `time` on the axis of the parameters of `parametric`: mapped by
/// `toParameterTime` and truncated toward zero. Without a parametric the time
/// is already on the parameter's axis and passes unchanged. A mapping that
/// leaves the 64-bit range throws `KelMediaLibException`.
inline long long parameterTime(const boost::shared_ptr<const Parametric>& parametric,
                               long long time) {
  if (!parametric) {
    return time;
  }
  const double mapped = parametric->toParameterTime(static_cast<double>(time));
  // -2^63 is the smallest time and fits; 2^63 is past the largest. NaN fails
  // both tests.
  if (!(mapped >= -9223372036854775808.0 && mapped < 9223372036854775808.0)) {
    throw KelMediaLibException("the time " + std::to_string(time) +
                               " maps to a parameter time outside the 64-bit range");
  }
  return static_cast<long long>(mapped);
}

/// Throws unless `object` is set. A clone of a key frame command is a blank
/// without its objects; running it is refused here rather than crashing.
template <class Object>
void require(const boost::shared_ptr<Object>& object, const char* command, const char* what) {
  if (!object) {
    throw KelMediaLibException(std::string(command) + " has no " + what +
                               " (a cloned command is a blank and can't run)");
  }
}

/// The raw address of an object, for tracing.
template <class Object>
void writeAddress(std::ostream& out, const boost::shared_ptr<Object>& object) {
  out << static_cast<const void*>(object.get());
}

/// A value in the stream's own form: numbers as the stream formats them,
/// points, colours and audio positions in their text forms, strings as they
/// are (unescaped: the trace is not read back).
template <class T>
void writeValue(std::ostream& out, const T& value) {
  out << value;
}

/// Shared values (interpolaters, screen metadata) print as raw addresses.
template <class U>
void writeValue(std::ostream& out, const boost::shared_ptr<U>& value) {
  writeAddress(out, value);
}

/// The attributes every key frame command traces first:
/// `parametric=".." parameter=".." time=".."`.
template <class Parameter>
void writeTarget(std::ostream& out, const boost::shared_ptr<const Parametric>& parametric,
                 const boost::shared_ptr<Parameter>& parameter, long long time) {
  out << "parametric=\"";
  writeAddress(out, parametric);
  out << "\" parameter=\"";
  writeAddress(out, parameter);
  out << "\" time=\"" << time << '"';
}

}  // namespace keyFrameCmd

}  // namespace KelMediaLib
