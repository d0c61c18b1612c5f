#include "core/Subject.h"

#include "core/Observer.h"

#include <algorithm>
#include <utility>

namespace KelMediaLib {

// One notification in progress: a snapshot of the observers to call, in which
// a detach clears the entry so that a detached observer isn't called.
struct Subject::Notification {
  std::vector<Observer*> pending;
  Notification* outer;
};

Subject::Subject() : notifications_(nullptr) {}

Subject::Subject(const Subject&) : notifications_(nullptr) {}

Subject& Subject::operator=(const Subject&) {
  return *this;
}

Subject::~Subject() = default;

void Subject::attach(Observer* observer) const {
  if (std::find(observers_.begin(), observers_.end(), observer) == observers_.end()) {
    observers_.push_back(observer);
  }
}

void Subject::attachConcerned(Observer* observer) const {
  concerned_.insert(observer);
}

void Subject::detach(Observer* observer) const {
  const auto found = std::find(observers_.begin(), observers_.end(), observer);
  if (found != observers_.end()) {
    observers_.erase(found);
  } else if (concerned_.erase(observer) == 0) {
    return;
  }
  askedNext_.erase(std::remove(askedNext_.begin(), askedNext_.end(), observer), askedNext_.end());
  for (Notification* n = notifications_; n; n = n->outer) {
    std::replace(n->pending.begin(), n->pending.end(), observer, static_cast<Observer*>(nullptr));
  }
}

void Subject::askNextNotification(Observer* observer) const {
  if (concerned_.count(observer) != 0 &&
      std::find(askedNext_.begin(), askedNext_.end(), observer) == askedNext_.end()) {
    askedNext_.push_back(observer);
  }
}

void Subject::notify() const {
  if (observers_.empty()) {
    return;
  }
  Notification frame{observers_, notifications_};
  run(frame);
}

void Subject::notifyConcerned(const std::vector<Observer*>& concerned) const {
  Notification frame{observers_, notifications_};
  const std::size_t first = frame.pending.size();
  const auto add = [&frame, first](Observer* observer) {
    if (std::find(frame.pending.begin() + static_cast<std::ptrdiff_t>(first), frame.pending.end(),
                  observer) == frame.pending.end()) {
      frame.pending.push_back(observer);
    }
  };
  for (Observer* observer : concerned) {
    if (concerned_.count(observer) != 0) {
      add(observer);
    }
  }
  std::vector<Observer*> asked;
  asked.swap(askedNext_);
  for (Observer* observer : asked) {
    add(observer);
  }
  if (!frame.pending.empty()) {
    run(frame);
  }
}

void Subject::run(Notification& frame) const {
  // Unlinks the notification from its subject however the loop ends.
  struct Scope {
    Notification*& head;
    Notification* outer;
    ~Scope() { head = outer; }
  } scope{notifications_, frame.outer};
  notifications_ = &frame;
  for (std::size_t i = 0; i < frame.pending.size(); ++i) {
    if (Observer* observer = frame.pending[i]) {
      observer->observerUpdate();
    }
  }
}

}  // namespace KelMediaLib
