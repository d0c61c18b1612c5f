#include "core/Subject.h"

#include "core/Observer.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

namespace KelMediaLib {

// One notification in progress: a snapshot of the observers to call, in which
// a detach clears the entry so that a detached observer isn't called.
struct Subject::Notification {
  std::vector<Observer*> pending;
  Notification* outer;
};

struct Subject::Concerned {
  std::unordered_set<Observer*> observers;
  std::vector<Observer*> askedNext;
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

std::size_t Subject::numObservers() const {
  return observers_.size() + (concerned_ ? concerned_->observers.size() : 0);
}

void Subject::attachConcerned(Observer* observer) const {
  if (!concerned_) {
    concerned_.reset(new Concerned());
  }
  concerned_->observers.insert(observer);
}

void Subject::detach(Observer* observer) const {
  const auto found = std::find(observers_.begin(), observers_.end(), observer);
  if (found != observers_.end()) {
    observers_.erase(found);
  } else if (!concerned_ || concerned_->observers.erase(observer) == 0) {
    return;
  }
  if (concerned_) {
    std::vector<Observer*>& asked = concerned_->askedNext;
    asked.erase(std::remove(asked.begin(), asked.end(), observer), asked.end());
  }
  for (Notification* n = notifications_; n; n = n->outer) {
    std::replace(n->pending.begin(), n->pending.end(), observer, static_cast<Observer*>(nullptr));
  }
}

void Subject::askNextNotification(Observer* observer) const {
  if (concerned_ && concerned_->observers.count(observer) != 0 &&
      std::find(concerned_->askedNext.begin(), concerned_->askedNext.end(), observer) ==
          concerned_->askedNext.end()) {
    concerned_->askedNext.push_back(observer);
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
  if (concerned_) {
    for (Observer* observer : concerned) {
      if (concerned_->observers.count(observer) != 0) {
        add(observer);
      }
    }
    std::vector<Observer*> asked;
    asked.swap(concerned_->askedNext);
    for (Observer* observer : asked) {
      add(observer);
    }
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
