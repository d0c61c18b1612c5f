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

struct Subject::Observers {
  // Those attached with `attach`, in order of attachment.
  std::vector<Observer*> all;
  // Those attached with `attachConcerned`, and those of them that asked for
  // the next notification (most subjects with observers have none).
  struct Concerned {
    std::unordered_set<Observer*> observers;
    std::vector<Observer*> askedNext;
  };
  std::unique_ptr<Concerned> concerned;
};

Subject::Subject() : notifications_(nullptr) {}

Subject::Subject(const Subject&) : notifications_(nullptr) {}

Subject& Subject::operator=(const Subject&) {
  return *this;
}

Subject::~Subject() = default;

Subject::Observers& Subject::observers() const {
  if (!observers_) {
    observers_.reset(new Observers());
  }
  return *observers_;
}

void Subject::attach(Observer* observer) const {
  std::vector<Observer*>& all = observers().all;
  if (std::find(all.begin(), all.end(), observer) == all.end()) {
    all.push_back(observer);
  }
}

std::size_t Subject::numObservers() const {
  if (!observers_) {
    return 0;
  }
  return observers_->all.size() +
         (observers_->concerned ? observers_->concerned->observers.size() : 0);
}

void Subject::attachConcerned(Observer* observer) const {
  Observers& all = observers();
  if (!all.concerned) {
    all.concerned.reset(new Observers::Concerned());
  }
  all.concerned->observers.insert(observer);
}

void Subject::detach(Observer* observer) const {
  if (!observers_) {
    return;
  }
  std::vector<Observer*>& all = observers_->all;
  const auto found = std::find(all.begin(), all.end(), observer);
  if (found != all.end()) {
    all.erase(found);
  } else if (!observers_->concerned || observers_->concerned->observers.erase(observer) == 0) {
    return;
  }
  if (observers_->concerned) {
    std::vector<Observer*>& asked = observers_->concerned->askedNext;
    asked.erase(std::remove(asked.begin(), asked.end(), observer), asked.end());
  }
  for (Notification* n = notifications_; n; n = n->outer) {
    std::replace(n->pending.begin(), n->pending.end(), observer, static_cast<Observer*>(nullptr));
  }
}

void Subject::askNextNotification(Observer* observer) const {
  if (!observers_ || !observers_->concerned) {
    return;
  }
  Observers::Concerned& concerned = *observers_->concerned;
  if (concerned.observers.count(observer) != 0 &&
      std::find(concerned.askedNext.begin(), concerned.askedNext.end(), observer) ==
          concerned.askedNext.end()) {
    concerned.askedNext.push_back(observer);
  }
}

void Subject::notify() const {
  if (!observers_ || observers_->all.empty()) {
    return;
  }
  Notification frame{observers_->all, notifications_};
  run(frame);
}

void Subject::notifyConcerned(const std::vector<Observer*>& concerned) const {
  if (!observers_) {
    return;
  }
  Notification frame{observers_->all, notifications_};
  const std::size_t first = frame.pending.size();
  const auto add = [&frame, first](Observer* observer) {
    if (std::find(frame.pending.begin() + static_cast<std::ptrdiff_t>(first), frame.pending.end(),
                  observer) == frame.pending.end()) {
      frame.pending.push_back(observer);
    }
  };
  if (observers_->concerned) {
    for (Observer* observer : concerned) {
      if (observers_->concerned->observers.count(observer) != 0) {
        add(observer);
      }
    }
    std::vector<Observer*> asked;
    asked.swap(observers_->concerned->askedNext);
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
