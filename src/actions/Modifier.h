#pragma once

#include <boost/shared_ptr.hpp>

namespace KelMediaLib {
template <class T>
class Parameter;
}

namespace OrvMediaLib {

class Transform;

/// Says what a parameter shows at each side of an action: its original
/// value, the value that `transform` makes of it with `value`, or something
/// of its own. `time` is key frame time, on the parameter's axis; the original
/// is the parameter's value there. A missing (null) parameter reads as NaN, so
/// that whoever asked can report it.
class Modifier {
 public:
  virtual ~Modifier();
  /// The value at the left key frame.
  virtual double calcLeftValue(boost::shared_ptr<const KelMediaLib::Parameter<double>> parameter,
                               const Transform& transform, long long time, double value) const = 0;
  /// The value at the right key frame.
  virtual double calcRightValue(boost::shared_ptr<const KelMediaLib::Parameter<double>> parameter,
                                const Transform& transform, long long time, double value) const = 0;
  /// A new object of the same class with the same fields; the caller owns it.
  virtual Modifier* clone() const = 0;

 protected:
  /// The parameter's value at `time`; NaN for a null parameter.
  static double originalValue(
      const boost::shared_ptr<const KelMediaLib::Parameter<double>>& parameter, double time);
};

}  // namespace OrvMediaLib
