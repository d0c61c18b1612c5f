#pragma once

#include <condition_variable>
#include <mutex>
#include <thread>
#include <unordered_map>

namespace KelMediaLib {

/// The lock of a whole project: many readers or one writer.
///
/// - Read locks are recursive: a thread may take as many as it likes.
/// - The thread that holds the write lock may also take read locks (a command
///   that iterates a parameter while it edits it), and may take the write
///   lock again (recursively).
/// - A thread that holds only read locks may take the write lock once no other
///   thread holds a lock. Two such threads asking at once would wait for each
///   other for ever: the second one gets a `KelMediaLibException` instead.
/// - Waiting writers keep new readers out (a thread that already reads may
///   go on reading), so a stream of readers can't starve a writer.
class ReadWriteMutex {
 public:
  ReadWriteMutex();
  ReadWriteMutex(const ReadWriteMutex&) = delete;
  ReadWriteMutex& operator=(const ReadWriteMutex&) = delete;
  ~ReadWriteMutex();

  void lockRead() const;
  void unlockRead() const;
  void lockWrite() const;
  void unlockWrite() const;

  /// Holds a read lock for its lifetime.
  class ScopedReadLock {
   public:
    explicit ScopedReadLock(const ReadWriteMutex& mutex);
    ScopedReadLock(const ScopedReadLock&) = delete;
    ScopedReadLock& operator=(const ScopedReadLock&) = delete;
    ~ScopedReadLock();

   private:
    const ReadWriteMutex& mutex_;
  };

  /// Holds the write lock for its lifetime.
  class ScopedWriteLock {
   public:
    explicit ScopedWriteLock(const ReadWriteMutex& mutex);
    ScopedWriteLock(const ScopedWriteLock&) = delete;
    ScopedWriteLock& operator=(const ScopedWriteLock&) = delete;
    ~ScopedWriteLock();

   private:
    const ReadWriteMutex& mutex_;
  };

 private:
  mutable std::mutex state_;
  mutable std::condition_variable changed_;
  mutable std::thread::id writer_;
  mutable int writeDepth_;
  mutable int writersWaiting_;
  mutable int upgradesWaiting_;
  // Read depth of each thread that holds read locks.
  mutable std::unordered_map<std::thread::id, int> readers_;
};

}  // namespace KelMediaLib
