#pragma once

#include "core/Cloneable.h"
#include "core/KelObject.h"
#include "values/Interpolater.h"

#include <vector>

#include <boost/shared_ptr.hpp>

#include <algorithm>
#include <memory>
#include <ostream>
#include <sstream>
#include <string>
#include <utility>

namespace KelMediaLib {

class Observer;
template <class T>
class Parameter;

namespace keyFrameText {

// Called with a trailing 0: the `long` overload is the fallback for values
// without a stream form. Among the others partial ordering decides:
// interpolaters print their name, other shared pointers (possibly to
// incomplete types) print nothing, anything else prints its stream form.
template <class T>
void appendValue(std::ostream&, const T&, long) {}

template <class T>
auto appendValue(std::ostream& out, const T& value, int) -> decltype(out << value, void()) {
  out << ", " << value;
}

template <class U>
void appendValue(std::ostream&, const boost::shared_ptr<U>&, int) {}

template <class U>
void appendValue(std::ostream& out, const boost::shared_ptr<Interpolater<U>>& interpolater, int) {
  if (interpolater) {
    out << ", " << interpolater->name();
  }
}

}  // namespace keyFrameText

/// A value at a time of a parameter, in the time of the parameter's owner.
/// Held by shared pointer; an interpolater value is shared, not copied.
template <class T>
class KeyFrame : public KelObject, public Cloneable {
 public:
  typedef T value_type;

  KeyFrame(long long time, const T& value) : time_(time), value_(value) {}
  /// The same time and value; the holders stay with `other`.
  KeyFrame(const KeyFrame& other)
      : KelObject(other), Cloneable(other), time_(other.time_), value_(other.value_) {}

  /// A new key frame with the same time and a copy of the value; the caller
  /// owns it.
  KeyFrame* clone() const override { return new KeyFrame(*this); }

  /// "KeyFrame(time, value)", or "KeyFrame(time)" for values without a text
  /// form.
  std::string description() const override {
    std::ostringstream out;
    out << "KeyFrame(" << time_;
    keyFrameText::appendValue(out, value_, 0);
    out << ')';
    return out.str();
  }

  /// The time, in the time of the parameter's owner.
  long long time() const { return time_; }
  const T& value() const { return value_; }

  /// Writes the value in place; the parameter isn't told (callers that want
  /// observers to hear of it go through the parameter).
  void setValue(const T& value) { value_ = value; }

  /// The observers that hold this key frame (the ranges it bounds), in order
  /// of attachment. A change of a parameter is told to the holders of the key
  /// frames it concerns, not to everything that observes the parameter.
  const std::vector<Observer*>& holders() const {
    static const std::vector<Observer*> none;
    return holders_ ? *holders_ : none;
  }
  /// Adds a holder; one attached already isn't added twice.
  void attachHolder(Observer* holder) const {
    if (!holders_) {
      holders_.reset(new std::vector<Observer*>());
    }
    if (std::find(holders_->begin(), holders_->end(), holder) == holders_->end()) {
      holders_->push_back(holder);
    }
  }
  void detachHolder(Observer* holder) const {
    if (holders_) {
      holders_->erase(std::remove(holders_->begin(), holders_->end(), holder), holders_->end());
    }
  }

 private:
  friend class Parameter<T>;
  void setTime(long long time) { time_ = time; }

  long long time_;
  T value_;
  // Made with the first holder: most key frames (a parameter's default, an
  // animation's inner ones) bound no range.
  mutable std::unique_ptr<std::vector<Observer*>> holders_;
};

}  // namespace KelMediaLib
