#include "core/KelMediaLibException.h"
#include "core/ReadWriteMutex.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

using KelMediaLib::KelMediaLibException;
using KelMediaLib::ReadWriteMutex;

namespace {

// Shared state of the threads of one test: a plain mutex and condition that
// the test's own bookkeeping lives under, apart from the lock under test.
struct Board {
  std::mutex m;
  std::condition_variable cv;

  void update(const std::function<void()>& change) {
    std::lock_guard<std::mutex> lock(m);
    change();
    cv.notify_all();
  }
  void waitUntil(const std::function<bool()>& ready) {
    std::unique_lock<std::mutex> lock(m);
    cv.wait(lock, ready);
  }
};

// A lock that deadlocks would hang the test program; this guard ends it with
// a message instead. It is no speed limit: the tests need a few milliseconds.
class DeadlockGuard {
 public:
  DeadlockGuard()
      : watcher_([this] {
          std::unique_lock<std::mutex> lock(m_);
          if (!cv_.wait_for(lock, std::chrono::seconds(20), [this] { return done_; })) {
            std::fprintf(stderr, "%s: deadlock in the lock under test\n",
                         ::testing::UnitTest::GetInstance()->current_test_info()->name());
            std::abort();
          }
        }) {}
  ~DeadlockGuard() {
    {
      std::lock_guard<std::mutex> lock(m_);
      done_ = true;
    }
    cv_.notify_all();
    watcher_.join();
  }

 private:
  std::mutex m_;
  std::condition_variable cv_;
  bool done_ = false;
  std::thread watcher_;
};

// Another thread gets a lock of the given kind now, while this thread holds
// what it holds.
template <class Lock>
void expectAnotherThreadGets(const ReadWriteMutex& mutex) {
  bool got = false;
  std::thread other([&] {
    Lock lock(mutex);
    got = true;
  });
  other.join();
  EXPECT_TRUE(got);
}
// A writer gets in only once the lock is entirely free.
const auto expectFreeForAnotherWriter = expectAnotherThreadGets<ReadWriteMutex::ScopedWriteLock>;
const auto expectAnotherReaderGetsIn = expectAnotherThreadGets<ReadWriteMutex::ScopedReadLock>;

TEST(ReadWriteMutexConcurrency, RecursiveReadsShareAndAreReleasedByMatchingUnlocks) {
  DeadlockGuard guard;
  ReadWriteMutex mutex;
  mutex.lockRead();
  mutex.lockRead();
  mutex.lockRead();
  expectAnotherReaderGetsIn(mutex);
  mutex.unlockRead();
  mutex.unlockRead();
  expectAnotherReaderGetsIn(mutex);
  mutex.unlockRead();
  expectFreeForAnotherWriter(mutex);
}

TEST(ReadWriteMutexConcurrency, WriterMayReadAndWriteAgainAndSoleReaderUpgrades) {
  DeadlockGuard guard;
  ReadWriteMutex mutex;
  {
    ReadWriteMutex::ScopedWriteLock write(mutex);
    ReadWriteMutex::ScopedReadLock read(mutex);
    ReadWriteMutex::ScopedWriteLock again(mutex);
    ReadWriteMutex::ScopedReadLock readAgain(mutex);
  }
  expectFreeForAnotherWriter(mutex);
  {
    ReadWriteMutex::ScopedReadLock read(mutex);
    ReadWriteMutex::ScopedReadLock nested(mutex);
    ReadWriteMutex::ScopedWriteLock write(mutex);
    ReadWriteMutex::ScopedWriteLock writeAgain(mutex);
  }
  expectFreeForAnotherWriter(mutex);

  // Letting go of the write lock first leaves a plain reader behind.
  mutex.lockWrite();
  mutex.lockRead();
  mutex.unlockWrite();
  expectAnotherReaderGetsIn(mutex);
  mutex.unlockRead();
  expectFreeForAnotherWriter(mutex);
}

// Two readers both ask for the write lock. Whichever asks second would wait
// for the first for ever; it gets the exception instead, and from then on it
// knows that the other one waits for the write lock. That makes the rest
// deterministic: the loser may still read (recursively), a new reader queues
// behind the waiting writer, and the writer gets in once the loser lets go.
TEST(ReadWriteMutexConcurrency, SecondUpgradingReaderGetsExceptionAndWriterIsServedFirst) {
  DeadlockGuard guard;
  ReadWriteMutex mutex;
  Board board;
  int readersIn = 0;
  bool loserKnown = false;
  int failures = 0;
  std::string failureText;
  std::vector<std::string> order;  // under board.m

  auto reader = [&] {
    mutex.lockRead();
    board.update([&] { ++readersIn; });
    board.waitUntil([&] { return readersIn == 2; });
    try {
      mutex.lockWrite();
    } catch (const KelMediaLibException& e) {
      board.update([&] {
        ++failures;
        failureText = e.what();
        loserKnown = true;
      });
      // The winner is waiting now; this thread already reads, so it may go on.
      mutex.lockRead();
      mutex.unlockRead();
      std::thread newcomer([&] {
        ReadWriteMutex::ScopedReadLock lock(mutex);
        board.update([&] { order.push_back("new reader"); });
      });
      // The newcomer must not get in while a writer waits; give a lock that
      // lets it pass the time to do so before the read lock is let go.
      {
        std::unique_lock<std::mutex> lock(board.m);
        board.cv.wait_for(lock, std::chrono::milliseconds(50), [&] { return !order.empty(); });
      }
      mutex.unlockRead();
      newcomer.join();
      return;
    }
    board.update([&] { order.push_back("writer"); });
    mutex.unlockWrite();
    mutex.unlockRead();
  };

  std::thread first(reader);
  std::thread second(reader);
  first.join();
  second.join();

  EXPECT_EQ(1, failures);
  EXPECT_TRUE(loserKnown);
  EXPECT_NE(std::string::npos, failureText.find("write lock")) << failureText;
  EXPECT_EQ((std::vector<std::string>{"writer", "new reader"}), order);
  expectFreeForAnotherWriter(mutex);
}

TEST(ReadWriteMutexConcurrency, ReadersHoldTogetherAndWriterEntersWhenAllLeft) {
  DeadlockGuard guard;
  const int kReaders = 3;
  ReadWriteMutex mutex;
  Board board;
  int arrived = 0;
  int inside = 0;
  bool writerAsked = false;
  int readersSeenByWriter = -1;

  std::vector<std::thread> readers;
  for (int i = 0; i < kReaders; ++i) {
    readers.emplace_back([&] {
      ReadWriteMutex::ScopedReadLock lock(mutex);
      board.update([&] {
        ++arrived;
        ++inside;
      });
      // Only a lock that lets readers share gets all of them here at once.
      board.waitUntil([&] { return arrived == kReaders && writerAsked; });
      ReadWriteMutex::ScopedReadLock nested(mutex);
      board.update([&] { --inside; });
    });
  }
  board.waitUntil([&] { return arrived == kReaders; });
  std::thread writer([&] {
    board.update([&] { writerAsked = true; });
    ReadWriteMutex::ScopedWriteLock lock(mutex);
    std::lock_guard<std::mutex> guard(board.m);
    readersSeenByWriter = inside;
  });
  for (std::thread& t : readers) {
    t.join();
  }
  writer.join();
  EXPECT_EQ(0, readersSeenByWriter);
}

// Threads mix reads, writes and reads nested in writes; the writers bump a
// counter that only the lock guards. Any overlap of a writer with anyone else
// shows up in the in-flight counts (and to ThreadSanitizer as a race).
TEST(ReadWriteMutexConcurrency, WriterExcludesReadersAndOtherWriters) {
  DeadlockGuard guard;
  const int kThreads = 4;
  const int kRounds = 300;
  ReadWriteMutex mutex;
  long counter = 0;
  std::atomic<int> readersIn{0};
  std::atomic<int> writersIn{0};
  std::atomic<int> overlaps{0};
  std::atomic<long> writes{0};

  std::vector<std::thread> threads;
  for (int t = 0; t < kThreads; ++t) {
    threads.emplace_back([&, t] {
      for (int round = 0; round < kRounds; ++round) {
        if ((round + t) % 3 == 0) {
          ReadWriteMutex::ScopedWriteLock lock(mutex);
          if (writersIn.fetch_add(1) != 0 || readersIn.load() != 0) {
            ++overlaps;
          }
          const long before = counter;
          std::this_thread::yield();
          {
            ReadWriteMutex::ScopedReadLock nested(mutex);
            counter = before + 1;
          }
          ++writes;
          writersIn.fetch_sub(1);
        } else {
          ReadWriteMutex::ScopedReadLock lock(mutex);
          readersIn.fetch_add(1);
          if (writersIn.load() != 0) {
            ++overlaps;
          }
          const long seen = counter;
          std::this_thread::yield();
          if (counter != seen) {
            ++overlaps;
          }
          readersIn.fetch_sub(1);
        }
      }
    });
  }
  for (std::thread& t : threads) {
    t.join();
  }
  EXPECT_EQ(0, overlaps.load());
  EXPECT_EQ(writes.load(), counter);
}

// Two readers hand the read lock to each other so that one of them always
// holds it: a lock that lets new readers past a waiting writer never lets the
// writer in until the readers give up.
TEST(ReadWriteMutexConcurrency, WaitingWriterIsNotStarvedByNewReaders) {
  DeadlockGuard guard;
  const int kMaxTurns = 20000;
  ReadWriteMutex mutex;
  Board board;
  int turn = 0;
  int acquisitions = 0;
  bool stop = false;
  int acquisitionsBeforeWriter = -1;

  auto reader = [&](int me) {
    for (;;) {
      std::unique_lock<std::mutex> lock(board.m);
      board.cv.wait(lock, [&] { return stop || turn == me; });
      if (stop) {
        return;
      }
      lock.unlock();
      mutex.lockRead();
      lock.lock();
      const int mine = ++acquisitions;
      turn = 1 - me;
      if (acquisitions >= kMaxTurns) {
        stop = true;
      }
      board.cv.notify_all();
      // Hold on until the other reader holds too. When it can't get in (it
      // queues behind the writer), let go after a while so the writer can.
      board.cv.wait_for(lock, std::chrono::milliseconds(20),
                        [&] { return stop || acquisitions > mine; });
      lock.unlock();
      mutex.unlockRead();
    }
  };

  std::thread first(reader, 0);
  std::thread second(reader, 1);
  board.waitUntil([&] { return acquisitions > 0; });
  std::thread writer([&] {
    ReadWriteMutex::ScopedWriteLock lock(mutex);
    board.update([&] {
      acquisitionsBeforeWriter = acquisitions;
      stop = true;
    });
  });
  writer.join();
  first.join();
  second.join();
  EXPECT_LT(acquisitionsBeforeWriter, kMaxTurns);
}

}  // namespace
