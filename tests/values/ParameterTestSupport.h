#pragma once

#include "core/Observer.h"
#include "core/ThreadSafe.h"
#include "core/XMLable.h"

#include <boost/make_shared.hpp>
#include <boost/shared_ptr.hpp>

#include <functional>
#include <limits>
#include <sstream>
#include <string>

namespace parameterTests {

const long long kMinTime = std::numeric_limits<long long>::min();
const long long kMaxTime = std::numeric_limits<long long>::max();

inline boost::shared_ptr<KelMediaLib::ThreadSafe> newProject() {
  return boost::make_shared<KelMediaLib::ThreadSafe>();
}

// Counts notifications and runs an optional check inside each one, so that a
// test sees the state an observer sees.
class CountingObserver : public KelMediaLib::Observer {
 public:
  void observerUpdate() override {
    ++count;
    if (onUpdate) {
      onUpdate();
    }
  }

  int count = 0;
  std::function<void()> onUpdate;
};

// "time=value " for each key frame in order, read through the public lookups.
template <class P>
std::string keyFrameText(const P& parameter) {
  std::ostringstream out;
  for (long long time : parameter.keyFrameTimes()) {
    out << time << '=' << parameter.keyFrame(time)->value() << ' ';
  }
  return out.str();
}

// A value as a stream writes it; a shared object as its address.
template <class V>
std::string text(const V& value) {
  std::ostringstream out;
  out << value;
  return out.str();
}
template <class U>
std::string text(const boost::shared_ptr<U>& value) {
  return text(static_cast<const void*>(value.get()));
}

// The text of an element written at depth 0 with no extra attributes.
template <class X>
std::string xmlOf(const X& element) {
  std::ostringstream out;
  KelMediaLib::XMLable::Options options(out);
  element.toXML(options, 0, std::string());
  return out.str();
}

}  // namespace parameterTests
