#pragma once

// Helpers shared by the files that implement InternalOrvProject; not
// installed, not for other classes.

#include "actions/Action.h"
#include "actions/ActionBin.h"
#include "actions/OrvException.h"
#include "actions/ParameterRange.h"
#include "media/media/Media.h"
#include "values/Parameter.h"

#include <boost/pointer_cast.hpp>
#include <boost/shared_ptr.hpp>

#include <string>
#include <vector>

namespace OrvMediaLib {
namespace projectsupport {

typedef std::vector<boost::shared_ptr<ActionBin>> Bins;
typedef boost::shared_ptr<const ParameterRange::KeyFrameType> KeyFramePtr;

template <class T>
const T& require(const boost::shared_ptr<T>& object, const char* operation, const char* what) {
  if (!object) {
    throw OrvException(std::string(operation) + ": no " + what + " given");
  }
  return *object;
}

// The project owns the model that it hands out as const.
inline Action& writable(const Action& action) {
  return const_cast<Action&>(action);
}

inline boost::shared_ptr<KelMediaLib::Parameter<double>> writableParameter(
    const ParameterRange& range) {
  return boost::const_pointer_cast<KelMediaLib::Parameter<double>>(range.parameter());
}

// Null for an action on anything but a media (an effect).
inline boost::shared_ptr<const KelMediaLib::Media> mediaOf(const Action& action) {
  return boost::dynamic_pointer_cast<const KelMediaLib::Media>(action.parametric());
}

// Time arithmetic at the edge of the model. Key frame times pass through
// double on their way to and from a media's own time, which holds every
// integer only up to 2^53: a result beyond that is refused before anything
// changes, never wrapped or rounded.
const long long kLargestTime = 1LL << 53;

inline long long checkedTime(bool overflowed, long long result, long long time, long long delta,
                             const char* sign) {
  if (overflowed || result > kLargestTime || result < -kLargestTime) {
    throw OrvException("the time " + std::to_string(time) + " moved by " + sign +
                       std::to_string(delta) + " is beyond the range of time");
  }
  return result;
}

inline long long addTime(long long time, long long delta) {
  long long sum = 0;
  const bool overflowed = __builtin_add_overflow(time, delta, &sum);
  return checkedTime(overflowed, sum, time, delta, "");
}

inline long long subtractTime(long long time, long long delta) {
  long long difference = 0;
  const bool overflowed = __builtin_sub_overflow(time, delta, &difference);
  return checkedTime(overflowed, difference, time, delta, "-");
}

}  // namespace projectsupport
}  // namespace OrvMediaLib
