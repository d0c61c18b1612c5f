#pragma once

#include <string>

namespace KelMediaLib {

/// An object known by a name that never changes, such as a parameter
/// ("opacity", "scale0"): its owner finds it by that name. A base of no
/// polymorphism of its own (nothing is deleted through it), so that it adds
/// only the name to each of the many objects that have one.
class Identified {
 public:
  explicit Identified(std::string name = std::string());

  const std::string& name() const { return name_; }

 protected:
  ~Identified();
  Identified(const Identified&) = default;
  Identified& operator=(const Identified&) = default;

 private:
  std::string name_;
};

}  // namespace KelMediaLib
