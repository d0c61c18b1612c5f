#pragma once

#include <boost/shared_ptr.hpp>

#include <string>

namespace KelMediaLib {

/// An object known by a name that never changes, such as a parameter
/// ("opacity", "scale0"): its owner finds it by that name. Objects of the
/// same name share one copy of it (every media has a "translation0"), kept
/// while one of them lives. A base of no polymorphism of its own (nothing is
/// deleted through it), so that it adds little to each of the many objects
/// that have a name.
class Identified {
 public:
  explicit Identified(const std::string& name = std::string());

  const std::string& name() const { return *name_; }

 protected:
  ~Identified();
  Identified(const Identified&) = default;
  Identified& operator=(const Identified&) = default;

 private:
  boost::shared_ptr<const std::string> name_;
};

}  // namespace KelMediaLib
