#include "core/Observer.h"
#include "core/Subject.h"

#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

using KelMediaLib::Observer;
using KelMediaLib::Subject;

namespace {

// An observer that logs its name and then runs an optional action, so that
// each test can script what happens inside a notification.
class ScriptedObserver : public Observer {
 public:
  ScriptedObserver(std::string name, std::vector<std::string>& log)
      : name_(std::move(name)), log_(log) {}

  void observerUpdate() override {
    log_.push_back(name_);
    if (onUpdate) {
      onUpdate();
    }
  }

  std::function<void()> onUpdate;

 private:
  std::string name_;
  std::vector<std::string>& log_;
};

class SubjectTest : public ::testing::Test {
 protected:
  std::vector<std::string> log;
  Subject subject;
  ScriptedObserver a{"a", log};
  ScriptedObserver b{"b", log};
  ScriptedObserver c{"c", log};
};

typedef std::vector<std::string> Names;

TEST_F(SubjectTest, NotifiesInOrderOfAttachmentAndIgnoresASecondAttach) {
  subject.attach(&b);
  subject.attach(&a);
  subject.attach(&b);
  subject.attach(&c);
  EXPECT_EQ(3u, subject.numObservers());
  subject.notify();
  EXPECT_EQ((Names{"b", "a", "c"}), log);

  log.clear();
  subject.detach(&b);
  subject.detach(&b);  // not attached any more: no effect
  subject.notify();
  EXPECT_EQ((Names{"a", "c"}), log);
}

// What a, the first of a, b and c, does inside a notification, and whom the
// notification and the one after it reach.
TEST_F(SubjectTest, ChangesDuringANotification) {
  const struct {
    const char* what;
    void (Subject::*change)(Observer*) const;
    int target;  // 0 a, 1 b
    Names log;
  } cases[] = {
      {"a detaches itself", &Subject::detach, 0, {"a", "b", "c", "b", "c"}},
      {"a detaches b", &Subject::detach, 1, {"a", "c", "a", "c"}},
      {"a attaches b", &Subject::attach, 1, {"a", "c", "a", "c", "b"}},
  };
  for (const auto& row : cases) {
    SCOPED_TRACE(row.what);
    Subject notifier;
    log.clear();
    notifier.attach(&a);
    if (row.change == &Subject::detach) notifier.attach(&b);
    notifier.attach(&c);
    ScriptedObserver* target = row.target ? &b : &a;
    bool once = true;
    a.onUpdate = [&] {
      if (once) (notifier.*row.change)(target);
      once = false;
    };
    notifier.notify();
    notifier.notify();
    EXPECT_EQ(row.log, log);
  }
  a.onUpdate = nullptr;
}

TEST_F(SubjectTest, NestedNotificationCallsEveryoneAndDetachReachesTheOuterOne) {
  subject.attach(&a);
  subject.attach(&b);
  subject.attach(&c);
  bool nested = false;
  bool inInner = false;
  a.onUpdate = [&] {
    if (!nested) {
      nested = true;
      inInner = true;
      subject.notify();
      inInner = false;
    }
  };
  // The inner notification detaches c: the outer one must not call it either.
  b.onUpdate = [&] {
    if (inInner) {
      subject.detach(&c);
    }
  };
  subject.notify();
  EXPECT_EQ((Names{"a", "a", "b", "b"}), log);
}

TEST_F(SubjectTest, ThrowingObserverLeavesTheSubjectUsable) {
  subject.attach(&a);
  subject.attach(&b);
  subject.attach(&c);
  a.onUpdate = [] { throw std::runtime_error("observer failed"); };
  EXPECT_THROW(subject.notify(), std::runtime_error);
  EXPECT_EQ((Names{"a"}), log);

  // A detach after the failed notification must not touch its dead frame,
  // and the next notification reaches everyone still attached.
  log.clear();
  a.onUpdate = nullptr;
  subject.detach(&b);
  subject.notify();
  EXPECT_EQ((Names{"a", "c"}), log);
}

TEST_F(SubjectTest, CopiesStartWithoutObservers) {
  subject.attach(&a);
  Subject copy(subject);
  EXPECT_EQ(0u, copy.numObservers());
  copy.notify();
  EXPECT_TRUE(log.empty());

  // Assignment neither takes the source's observers nor drops the target's.
  Subject target;
  target.attach(&b);
  target = subject;
  target.notify();
  EXPECT_EQ((Names{"b"}), log);
}

TEST_F(SubjectTest, ConcernedObserversHearOnlyTheNotificationsThatNameThem) {
  ScriptedObserver stranger("stranger", log);
  subject.attach(&c);
  subject.attachConcerned(&a);
  subject.attachConcerned(&b);
  const struct {
    const char* what;
    std::function<void()> run;
    Names heard;
  } rows[] = {
      {"notify", [&] { subject.notify(); }, {"c"}},
      {"named twice",
       [&] {
         subject.notifyConcerned({&b, &a, &b});
       },
       {"c", "b", "a"}},
      {"not attached", [&] { subject.notifyConcerned({&stranger}); }, {"c"}},
      {"asked",
       [&] {
         subject.askNextNotification(&b);
         subject.askNextNotification(&b);
         subject.askNextNotification(&stranger);
         subject.notifyConcerned({&a});
         subject.notifyConcerned({});
       },
       {"c", "a", "b", "c"}},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.what);
    log.clear();
    row.run();
    EXPECT_EQ(row.heard, log);
  }
  EXPECT_EQ(3u, subject.numObservers());
}

TEST_F(SubjectTest, AConcernedObserverDetachedDuringANotificationIsNotCalled) {
  subject.attachConcerned(&a);
  subject.attachConcerned(&b);
  subject.askNextNotification(&b);
  a.onUpdate = [&] { subject.detach(&b); };
  subject.notifyConcerned({&a, &b});
  EXPECT_EQ(Names{"a"}, log);
  log.clear();
  subject.notifyConcerned({&b});
  EXPECT_TRUE(log.empty());
  EXPECT_EQ(1u, subject.numObservers());
}

}  // namespace
