#include "values/ParameterIterator.h"

#include "core/ReadWriteMutex.h"
#include "values/InterpolatingParam.h"
#include "values/Parameter.h"
#include "values/ParameterTestSupport.h"

#include <gtest/gtest.h>

#include <boost/shared_ptr.hpp>
#include <boost/smart_ptr/bad_weak_ptr.hpp>

#include <atomic>
#include <chrono>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <utility>
#include <vector>

using KelMediaLib::InterpolatingParam;
using KelMediaLib::Parameter;
using KelMediaLib::ParameterIterator;
using KelMediaLib::ReadWriteMutex;
using KelMediaLib::ThreadSafe;
using parameterTests::kMaxTime;

namespace {

typedef std::vector<std::pair<long long, double>> Visits;

template <class P>
Visits visit(const P& parameter) {
  Visits visits;
  for (auto it = parameter.begin(); it != parameter.end(); ++it) {
    visits.push_back(*it);
  }
  return visits;
}

class ParameterIteratorTest : public ::testing::Test {
 protected:
  boost::shared_ptr<ThreadSafe> project = parameterTests::newProject();
  boost::shared_ptr<Parameter<double>> opacity = Parameter<double>::create(project, "opacity", 1.0);
};

TEST_F(ParameterIteratorTest, VisitsEveryKeyFrameInTimeOrder) {
  EXPECT_EQ((Visits{{0, 1.0}}), visit(*opacity));
  EXPECT_EQ(kMaxTime, opacity->end().time);
  opacity->addKeyFrame(10, 0.5);
  opacity->addKeyFrame(-5, 0.25);
  EXPECT_EQ((Visits{{-5, 0.25}, {0, 1.0}, {10, 0.5}}), visit(*opacity));

  const auto scale = InterpolatingParam<double>::create(project, "scale", 0.0);
  scale->addKeyFrame(10, 8.0);
  EXPECT_EQ((Visits{{0, 0.0}, {10, 8.0}}), visit(*scale));

  // Iterators of two parameters never meet, even at the same time.
  EXPECT_TRUE(opacity->end() != scale->end());
}

TEST_F(ParameterIteratorTest, ArrowGivesANewPairOwnedByTheIteratorEachTime) {
  opacity->addKeyFrame(10, 0.5);
  ParameterIterator<double> it = opacity->begin();
  ++it;
  const std::pair<long long, double>* first = it.operator->();
  const std::pair<long long, double>* second = it.operator->();
  EXPECT_NE(first, second);
  EXPECT_EQ(*first, *second);
  EXPECT_EQ(10, first->first);
  EXPECT_EQ(0.5, first->second);

  // Earlier pairs stay valid while the iterator lives, also after it moves
  // and after a copy reads its own pairs.
  const ParameterIterator<double> copy(it);
  EXPECT_EQ(0.5, copy->second);
  ++it;
  EXPECT_EQ(0.5, it->second);
  EXPECT_EQ(10, first->first);
  EXPECT_EQ(0.5, second->second);
}

TEST_F(ParameterIteratorTest, TheIteratingThreadMayEditAndWrite) {
  opacity->addKeyFrame(10, 2.0);
  opacity->addKeyFrame(20, 3.0);
  std::vector<long long> times;
  for (auto it = opacity->begin(); it != opacity->end(); ++it) {
    times.push_back(it.time);
    if (it.time == 10) {
      // No other thread reads: this one's read lock may become a write lock.
      ReadWriteMutex::ScopedWriteLock write(project->mutex());
      opacity->addKeyFrame(15, 2.5);
      opacity->moveKeyFrame(20, 30);
      opacity->moveKeyFrame(0, 5);
    }
  }
  EXPECT_EQ((std::vector<long long>{0, 10, 15, 30}), times);

  // And a writer may iterate.
  ReadWriteMutex::ScopedWriteLock write(project->mutex());
  EXPECT_EQ(4u, visit(*opacity).size());
}

TEST_F(ParameterIteratorTest, ConcurrencyAnotherThreadsWriterWaitsForTheLastCopy) {
  std::mutex logGuard;
  std::vector<std::string> log;
  auto note = [&](const char* event) {
    std::lock_guard<std::mutex> hold(logGuard);
    log.push_back(event);
  };
  std::atomic<bool> asking{false};

  std::optional<ParameterIterator<double>> it(opacity->begin());
  std::optional<ParameterIterator<double>> copy(*it);
  std::thread writer([&] {
    asking = true;
    ReadWriteMutex::ScopedWriteLock write(project->mutex());
    note("writer locked");
  });
  while (!asking) {
    std::this_thread::yield();
  }
  // The pauses give a writer that wasn't held back every chance to show it.
  std::this_thread::sleep_for(std::chrono::milliseconds(20));
  note("iterator gone");
  it.reset();
  std::this_thread::sleep_for(std::chrono::milliseconds(20));
  note("copy gone");
  copy.reset();
  writer.join();
  EXPECT_EQ((std::vector<std::string>{"iterator gone", "copy gone", "writer locked"}), log);
}

TEST_F(ParameterIteratorTest, BeginOnAParameterWhoseProjectHasGoneThrows) {
  project.reset();
  try {
    opacity->begin();
    ADD_FAILURE() << "begin() didn't throw";
  } catch (const boost::bad_weak_ptr& e) {
    EXPECT_STREQ("tr1::bad_weak_ptr", e.what());
  }
  EXPECT_THROW(opacity->end(), boost::bad_weak_ptr);
}

}  // namespace
