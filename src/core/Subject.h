#pragma once

#include <cstddef>
#include <memory>
#include <vector>

namespace KelMediaLib {

class Observer;

/// Keeps a set of observers and calls them, in order of attachment, on
/// `notify()`. An observer may attach or detach observers (itself included)
/// while it is being notified: one detached during a notification is not
/// called any more in it, one attached during it is called from the next one.
/// Attaching an observer that is attached already changes nothing.
///
/// A subject with many observers of which each change concerns few (the
/// ranges on a parameter) has them attach with `attachConcerned`: they hear
/// only the notifications that name them (`notifyConcerned`), so that a
/// change costs what it concerns, not what the subject holds.
///
/// The observer lists are not guarded by a lock: the model changes under the
/// project's write lock.
class Subject {
 public:
  Subject();
  /// A copy starts without observers: observers attach to one object.
  Subject(const Subject&);
  Subject& operator=(const Subject&);
  virtual ~Subject();

  /// Attaches `observer` to hear of every change.
  virtual void attach(Observer* observer) const;
  /// Attaches `observer` to hear only of the changes that name it.
  void attachConcerned(Observer* observer) const;
  /// Detaches `observer`, however it was attached.
  virtual void detach(Observer* observer) const;
  /// Tells the observers attached with `attach`.
  virtual void notify() const;
  /// Tells the observers attached with `attach`, then those of `concerned`
  /// that are attached with `attachConcerned` (each once, in the order
  /// given), then those that asked for the next notification.
  void notifyConcerned(const std::vector<Observer*>& concerned) const;
  /// Has `observer`, attached with `attachConcerned`, told of the next
  /// notification whatever it names: for an observer that had to leave its
  /// update unfinished until the subject is in a state it can read.
  void askNextNotification(Observer* observer) const;

  /// Whether a notification of this subject is running.
  bool notifying() const { return notifications_ != nullptr; }

  /// The number of observers, of both kinds.
  std::size_t numObservers() const;

 private:
  struct Notification;
  // The observers, made with the first of them: most subjects (a media's
  // many parameters) never get one, and an empty list costs a subject more
  // than the rest of what it keeps.
  struct Observers;
  void run(Notification& frame) const;
  Observers& observers() const;

  mutable std::unique_ptr<Observers> observers_;
  // Innermost notification in progress; each one links to the one it runs in.
  mutable Notification* notifications_;
};

}  // namespace KelMediaLib
