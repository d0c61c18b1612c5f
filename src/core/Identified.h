#pragma once

#include <string>

namespace KelMediaLib {

/// An object known by a name, such as a parameter ("opacity", "scale0").
/// The name is plain data: callers that share the object across threads read
/// it under the project's read lock.
class Identified {
 public:
  explicit Identified(std::string name = std::string());
  virtual ~Identified();

  const std::string& name() const { return name_; }

 protected:
  void setName(const std::string& name) { name_ = name; }

 private:
  std::string name_;
};

}  // namespace KelMediaLib
