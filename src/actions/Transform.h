#pragma once

namespace OrvMediaLib {

/// Combines a parameter's original value with the value an action asks for;
/// a `Modifier` decides on which side of the action the result shows.
class Transform {
 public:
  virtual ~Transform();
  /// The value that `value` makes of `original`.
  virtual double transform(double original, double value) const = 0;
  /// A new object of the same class; the caller owns it.
  virtual Transform* clone() const = 0;
};

}  // namespace OrvMediaLib
