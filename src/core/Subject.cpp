#include "core/Subject.h"

#include "core/Observer.h"

#include <algorithm>

namespace KelMediaLib {

// One notification in progress: a snapshot of the observers to call, in which
// a detach clears the entry so that a detached observer isn't called.
struct Subject::Notification {
  std::vector<Observer*> pending;
  Notification* outer;
};

Subject::Subject() : notifications_(nullptr) {}

Subject::Subject(const Subject&) : notifications_(nullptr) {}

Subject& Subject::operator=(const Subject&) { return *this; }

Subject::~Subject() = default;

void Subject::attach(Observer* observer) const {
  if (std::find(observers_.begin(), observers_.end(), observer) == observers_.end()) {
    observers_.push_back(observer);
  }
}

void Subject::detach(Observer* observer) const {
  const auto found = std::find(observers_.begin(), observers_.end(), observer);
  if (found == observers_.end()) {
    return;
  }
  observers_.erase(found);
  for (Notification* n = notifications_; n; n = n->outer) {
    std::replace(n->pending.begin(), n->pending.end(), observer, static_cast<Observer*>(nullptr));
  }
}

void Subject::notify() const {
  if (observers_.empty()) {
    return;
  }
  // Unlinks the notification from its subject however the loop ends.
  struct Scope {
    Notification*& head;
    Notification frame;
    ~Scope() { head = frame.outer; }
  } scope{notifications_, Notification{observers_, notifications_}};
  notifications_ = &scope.frame;
  Notification& frame = scope.frame;
  for (std::size_t i = 0; i < frame.pending.size(); ++i) {
    if (Observer* observer = frame.pending[i]) {
      observer->observerUpdate();
    }
  }
}

}  // namespace KelMediaLib
