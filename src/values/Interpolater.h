#pragma once

#include "core/KelMediaLibException.h"
#include "core/KelObject.h"
#include "core/XMLText.h"
#include "values/AudioPosition.h"
#include "values/Color.h"
#include "values/Point.h"

#include <boost/shared_ptr.hpp>

#include <istream>
#include <ostream>
#include <string>

namespace KelMediaLib {

/// How a parameter moves between two key frames. Interpolaters are immutable
/// and shared; files know them by a four-letter name.
template <class T>
class Interpolater : public KelObject {
 public:
  explicit Interpolater(const std::string& name) : name_(name) {}

  /// The four-letter name used in project files ("linr", "esIn", ...).
  const std::string& name() const { return name_; }
  /// The name, for diagnostics.
  std::string description() const override { return "Interpolater(" + name_ + ")"; }

  /// The value at `fraction` between `left` (fraction 0) and `right`
  /// (fraction 1). The fraction is not clamped: outside 0..1 it extrapolates.
  virtual T interpolate(T left, T right, double fraction) = 0;

 private:
  std::string name_;
};

/// Straight line: weight = fraction. One shared instance per value type.
template <class T>
class LinearInterpolater : public Interpolater<T> {
 public:
  LinearInterpolater();
  /// The shared instance, made on first use; safe from any thread.
  static boost::shared_ptr<LinearInterpolater<T>> getInstance();
  T interpolate(T left, T right, double fraction) override;
};

/// Holds the left value over the whole stretch. One shared instance per type.
template <class T>
class LeftInterpolater : public Interpolater<T> {
 public:
  LeftInterpolater();
  /// The shared instance, made on first use; safe from any thread.
  static boost::shared_ptr<LeftInterpolater<T>> getInstance();
  T interpolate(T left, T right, double fraction) override;
};

/// weight = fraction ^ exponent, exponent 2: starts slowly. A new object per
/// request.
template <class T>
class EaseInInterpolater : public Interpolater<T> {
 public:
  EaseInInterpolater();
  T interpolate(T left, T right, double fraction) override;

  double exponent;
};

/// weight = fraction ^ exponent, exponent 0.5: starts quickly. A new object
/// per request.
template <class T>
class EaseOutInterpolater : public Interpolater<T> {
 public:
  EaseOutInterpolater();
  T interpolate(T left, T right, double fraction) override;

  double exponent;
};

/// Half a sine wave: slow at both ends. One shared instance per value type.
template <class T>
class EaseInOutSinusoidalInterpolater : public Interpolater<T> {
 public:
  EaseInOutSinusoidalInterpolater();
  /// The shared instance, made on first use; safe from any thread.
  static boost::shared_ptr<EaseInOutSinusoidalInterpolater<T>> getInstance();
  T interpolate(T left, T right, double fraction) override;
};

/// Two parabolas meeting at (0.5, 0.5): slow at both ends. One shared
/// instance per value type.
template <class T>
class EaseInOutDoubleExponentialSigmoidInterpolater : public Interpolater<T> {
 public:
  EaseInOutDoubleExponentialSigmoidInterpolater();
  /// The shared instance, made on first use; safe from any thread.
  static boost::shared_ptr<EaseInOutDoubleExponentialSigmoidInterpolater<T>> getInstance();
  T interpolate(T left, T right, double fraction) override;
};

/// Reads one whitespace-delimited word and stores the interpolater of that
/// name: the shared instance, or a new object for "esIn" and "esOt". Any
/// other word, an empty one included, throws KelMediaLibException.
template <class T>
std::istream& operator>>(std::istream& in, boost::shared_ptr<Interpolater<T>>& interpolater);

/// Writes the interpolater's name; a missing interpolater has no text form
/// and throws KelMediaLibException.
template <class T>
void writeXMLValue(std::ostream& out, const boost::shared_ptr<Interpolater<T>>& interpolater) {
  if (!interpolater) {
    throw KelMediaLibException("cannot write a missing interpolater");
  }
  writeRaw(out, interpolater->name());
}

// Made once, in Interpolater.cpp.
extern template class LinearInterpolater<double>;
extern template class LeftInterpolater<double>;
extern template class EaseInInterpolater<double>;
extern template class EaseOutInterpolater<double>;
extern template class EaseInOutSinusoidalInterpolater<double>;
extern template class EaseInOutDoubleExponentialSigmoidInterpolater<double>;
extern template class LinearInterpolater<float>;
extern template class LeftInterpolater<float>;
extern template class EaseInInterpolater<float>;
extern template class EaseOutInterpolater<float>;
extern template class EaseInOutSinusoidalInterpolater<float>;
extern template class EaseInOutDoubleExponentialSigmoidInterpolater<float>;
extern template class LinearInterpolater<Point>;
extern template class LeftInterpolater<Point>;
extern template class EaseInInterpolater<Point>;
extern template class EaseOutInterpolater<Point>;
extern template class EaseInOutSinusoidalInterpolater<Point>;
extern template class EaseInOutDoubleExponentialSigmoidInterpolater<Point>;
extern template class LinearInterpolater<Color>;
extern template class LeftInterpolater<Color>;
extern template class EaseInInterpolater<Color>;
extern template class EaseOutInterpolater<Color>;
extern template class EaseInOutSinusoidalInterpolater<Color>;
extern template class EaseInOutDoubleExponentialSigmoidInterpolater<Color>;
extern template class LinearInterpolater<AudioPosition>;
extern template class LeftInterpolater<AudioPosition>;
extern template class EaseInInterpolater<AudioPosition>;
extern template class EaseOutInterpolater<AudioPosition>;
extern template class EaseInOutSinusoidalInterpolater<AudioPosition>;
extern template class EaseInOutDoubleExponentialSigmoidInterpolater<AudioPosition>;
extern template std::istream& operator>>(std::istream&, boost::shared_ptr<Interpolater<double>>&);
extern template std::istream& operator>>(std::istream&, boost::shared_ptr<Interpolater<float>>&);
extern template std::istream& operator>>(std::istream&, boost::shared_ptr<Interpolater<Point>>&);
extern template std::istream& operator>>(std::istream&, boost::shared_ptr<Interpolater<Color>>&);
extern template std::istream& operator>>(std::istream&,
                                         boost::shared_ptr<Interpolater<AudioPosition>>&);

}  // namespace KelMediaLib
