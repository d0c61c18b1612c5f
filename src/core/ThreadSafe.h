#pragma once

#include "core/ReadWriteMutex.h"

namespace KelMediaLib {

/// Owner of the lock of a project. Objects of the model reach it through a
/// weak pointer (see `SubProject`). Subclasses that stand in for another
/// object (a facade around a project) hand out that object's lock instead.
class ThreadSafe {
 public:
  ThreadSafe();
  ThreadSafe(const ThreadSafe&) = delete;
  ThreadSafe& operator=(const ThreadSafe&) = delete;
  virtual ~ThreadSafe();

  virtual ReadWriteMutex& mutex() const;

 private:
  mutable ReadWriteMutex mutex_;
};

}  // namespace KelMediaLib
