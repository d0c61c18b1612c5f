#pragma once

namespace KelMediaLib {

/// Told by a `Subject` it is attached to, synchronously, after each change.
class Observer {
 public:
  virtual ~Observer() = default;
  virtual void observerUpdate() = 0;
};

}  // namespace KelMediaLib
