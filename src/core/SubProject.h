#pragma once

#include <boost/weak_ptr.hpp>

namespace KelMediaLib {

class ThreadSafe;

/// A part of a project's model: it knows, weakly, the object that holds the
/// project's lock. A base of no polymorphism of its own (parts are found
/// through their other bases and never deleted through this one): most
/// parts are parameters, and many.
class SubProject {
 public:
  explicit SubProject(boost::weak_ptr<const ThreadSafe> project);

  boost::weak_ptr<const ThreadSafe> projectMutex() const { return project_; }

 protected:
  ~SubProject();
  SubProject(const SubProject&) = default;
  SubProject& operator=(const SubProject&) = default;

 private:
  boost::weak_ptr<const ThreadSafe> project_;
};

}  // namespace KelMediaLib
