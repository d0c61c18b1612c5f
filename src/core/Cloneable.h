#pragma once

namespace KelMediaLib {

/// Something that can copy itself through a base pointer. The caller owns the
/// returned object; subclasses narrow the return type covariantly.
class Cloneable {
 public:
  virtual ~Cloneable() = default;
  virtual Cloneable* clone() const = 0;
};

}  // namespace KelMediaLib
