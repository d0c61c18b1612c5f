#pragma once

#include <boost/weak_ptr.hpp>

namespace KelMediaLib {

class ThreadSafe;

/// A part of a project's model: it knows, weakly, the object that holds the
/// project's lock.
class SubProject {
 public:
  explicit SubProject(boost::weak_ptr<const ThreadSafe> project);
  virtual ~SubProject();

  boost::weak_ptr<const ThreadSafe> projectMutex() const { return project_; }

 private:
  boost::weak_ptr<const ThreadSafe> project_;
};

}  // namespace KelMediaLib
