#include "values/Interpolater.h"

#include <cmath>

namespace KelMediaLib {

namespace {

// The constants and the order of the operations below are fixed: files made
// by earlier versions must animate to the same bits.
const double kPi = 3.141592653589793;
const double kHalfPi = 1.5707963267948966;

double mix(double left, double right, double w) {
  return (1 - w) * left + w * right;
}

// Mixed in double and narrowed once, so that float parameters follow the
// same curve as double ones.
float mix(float left, float right, double w) {
  return static_cast<float>(static_cast<double>(left) * (1 - w) + w * static_cast<double>(right));
}

template <class T>
T mix(const T& left, const T& right, double w) {
  const T rightPart = right * w;
  const T leftPart = left * (1 - w);
  return leftPart + rightPart;
}

// A function-local static is made once even when threads ask at the same
// time (the compiler guards it), and every caller gets that one object.
template <class Shared>
boost::shared_ptr<Shared> sharedInstance() {
  static const boost::shared_ptr<Shared> instance(new Shared());
  return instance;
}

template <class T>
boost::shared_ptr<Interpolater<T>> interpolaterNamed(const std::string& word) {
  if (word == "linr") {
    return LinearInterpolater<T>::getInstance();
  }
  if (word == "left") {
    return LeftInterpolater<T>::getInstance();
  }
  if (word == "esIn") {
    return boost::shared_ptr<Interpolater<T>>(new EaseInInterpolater<T>());
  }
  if (word == "esOt") {
    return boost::shared_ptr<Interpolater<T>>(new EaseOutInterpolater<T>());
  }
  if (word == "eios") {
    return EaseInOutSinusoidalInterpolater<T>::getInstance();
  }
  if (word == "eioe") {
    return EaseInOutDoubleExponentialSigmoidInterpolater<T>::getInstance();
  }
  throw KelMediaLibException("trying to read an unknown interpolater");
}

}  // namespace

template <class T>
LinearInterpolater<T>::LinearInterpolater() : Interpolater<T>("linr") {}

template <class T>
boost::shared_ptr<LinearInterpolater<T>> LinearInterpolater<T>::getInstance() {
  return sharedInstance<LinearInterpolater<T>>();
}

template <class T>
T LinearInterpolater<T>::interpolate(T left, T right, double fraction) {
  return mix(left, right, fraction);
}

template <class T>
LeftInterpolater<T>::LeftInterpolater() : Interpolater<T>("left") {}

template <class T>
boost::shared_ptr<LeftInterpolater<T>> LeftInterpolater<T>::getInstance() {
  return sharedInstance<LeftInterpolater<T>>();
}

template <class T>
T LeftInterpolater<T>::interpolate(T left, T, double) {
  return left;
}

template <class T>
EaseInInterpolater<T>::EaseInInterpolater() : Interpolater<T>("esIn"), exponent(2.0) {}

template <class T>
T EaseInInterpolater<T>::interpolate(T left, T right, double fraction) {
  return mix(left, right, std::pow(fraction, exponent));
}

template <class T>
EaseOutInterpolater<T>::EaseOutInterpolater() : Interpolater<T>("esOt"), exponent(0.5) {}

template <class T>
T EaseOutInterpolater<T>::interpolate(T left, T right, double fraction) {
  return mix(left, right, std::pow(fraction, exponent));
}

template <class T>
EaseInOutSinusoidalInterpolater<T>::EaseInOutSinusoidalInterpolater() : Interpolater<T>("eios") {}

template <class T>
boost::shared_ptr<EaseInOutSinusoidalInterpolater<T>>
EaseInOutSinusoidalInterpolater<T>::getInstance() {
  return sharedInstance<EaseInOutSinusoidalInterpolater<T>>();
}

template <class T>
T EaseInOutSinusoidalInterpolater<T>::interpolate(T left, T right, double fraction) {
  return mix(left, right, std::sin(kPi * fraction - kHalfPi) * 0.5 + 0.5);
}

template <class T>
EaseInOutDoubleExponentialSigmoidInterpolater<T>::EaseInOutDoubleExponentialSigmoidInterpolater()
    : Interpolater<T>("eioe") {}

template <class T>
boost::shared_ptr<EaseInOutDoubleExponentialSigmoidInterpolater<T>>
EaseInOutDoubleExponentialSigmoidInterpolater<T>::getInstance() {
  return sharedInstance<EaseInOutDoubleExponentialSigmoidInterpolater<T>>();
}

template <class T>
T EaseInOutDoubleExponentialSigmoidInterpolater<T>::interpolate(T left, T right, double fraction) {
  const double t = fraction;
  double w;
  // Written as "t < 0.5" so that a NaN fraction takes the upper half.
  if (t < 0.5) {
    w = (t + t) * (t + t) * 0.5;
  } else {
    const double u = (1 - t) + (1 - t);
    w = u * u * -0.5 + 1;
  }
  return mix(left, right, w);
}

template <class T>
std::istream& operator>>(std::istream& in, boost::shared_ptr<Interpolater<T>>& interpolater) {
  // A failed read leaves the word empty, which is reported as unknown.
  std::string word;
  in >> word;
  interpolater = interpolaterNamed<T>(word);
  return in;
}

template class LinearInterpolater<double>;
template class LeftInterpolater<double>;
template class EaseInInterpolater<double>;
template class EaseOutInterpolater<double>;
template class EaseInOutSinusoidalInterpolater<double>;
template class EaseInOutDoubleExponentialSigmoidInterpolater<double>;
template class LinearInterpolater<float>;
template class LeftInterpolater<float>;
template class EaseInInterpolater<float>;
template class EaseOutInterpolater<float>;
template class EaseInOutSinusoidalInterpolater<float>;
template class EaseInOutDoubleExponentialSigmoidInterpolater<float>;
template class LinearInterpolater<Point>;
template class LeftInterpolater<Point>;
template class EaseInInterpolater<Point>;
template class EaseOutInterpolater<Point>;
template class EaseInOutSinusoidalInterpolater<Point>;
template class EaseInOutDoubleExponentialSigmoidInterpolater<Point>;
template class LinearInterpolater<Color>;
template class LeftInterpolater<Color>;
template class EaseInInterpolater<Color>;
template class EaseOutInterpolater<Color>;
template class EaseInOutSinusoidalInterpolater<Color>;
template class EaseInOutDoubleExponentialSigmoidInterpolater<Color>;
template class LinearInterpolater<AudioPosition>;
template class LeftInterpolater<AudioPosition>;
template class EaseInInterpolater<AudioPosition>;
template class EaseOutInterpolater<AudioPosition>;
template class EaseInOutSinusoidalInterpolater<AudioPosition>;
template class EaseInOutDoubleExponentialSigmoidInterpolater<AudioPosition>;
template std::istream& operator>>(std::istream&, boost::shared_ptr<Interpolater<double>>&);
template std::istream& operator>>(std::istream&, boost::shared_ptr<Interpolater<float>>&);
template std::istream& operator>>(std::istream&, boost::shared_ptr<Interpolater<Point>>&);
template std::istream& operator>>(std::istream&, boost::shared_ptr<Interpolater<Color>>&);
template std::istream& operator>>(std::istream&, boost::shared_ptr<Interpolater<AudioPosition>>&);

}  // namespace KelMediaLib
