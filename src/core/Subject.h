#pragma once

#include <cstddef>
#include <vector>

namespace KelMediaLib {

class Observer;

/// Keeps a set of observers and calls them, in order of attachment, on
/// `notify()`. An observer may attach or detach observers (itself included)
/// while it is being notified: one detached during a notification is not
/// called any more in it, one attached during it is called from the next one.
/// Attaching an observer that is attached already changes nothing.
/// The observer list is not guarded by a lock: the model changes under the
/// project's write lock.
class Subject {
 public:
  Subject();
  /// A copy starts without observers: observers attach to one object.
  Subject(const Subject&);
  Subject& operator=(const Subject&);
  virtual ~Subject();

  virtual void attach(Observer* observer) const;
  virtual void detach(Observer* observer) const;
  virtual void notify() const;

  std::size_t numObservers() const { return observers_.size(); }

 private:
  struct Notification;

  mutable std::vector<Observer*> observers_;
  // Innermost notification in progress; each one links to the one it runs in.
  mutable Notification* notifications_;
};

}  // namespace KelMediaLib
