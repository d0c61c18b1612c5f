#include "core/ReadWriteMutex.h"

#include "core/KelMediaLibException.h"

#include <cassert>

namespace KelMediaLib {

ReadWriteMutex::ReadWriteMutex() : writeDepth_(0), writersWaiting_(0), upgradesWaiting_(0) {}

ReadWriteMutex::~ReadWriteMutex() = default;

void ReadWriteMutex::lockRead() const {
  const std::thread::id me = std::this_thread::get_id();
  std::unique_lock<std::mutex> lock(state_);
  auto mine = readers_.find(me);
  if (mine != readers_.end()) {
    ++mine->second;
    return;
  }
  if (writer_ != me) {
    changed_.wait(lock, [this] { return writeDepth_ == 0 && writersWaiting_ == 0; });
  }
  readers_.emplace(me, 1);
}

void ReadWriteMutex::unlockRead() const {
  const std::thread::id me = std::this_thread::get_id();
  std::lock_guard<std::mutex> lock(state_);
  auto mine = readers_.find(me);
  assert(mine != readers_.end() && "unlockRead without a read lock");
  if (mine == readers_.end()) {
    return;
  }
  if (--mine->second == 0) {
    readers_.erase(mine);
    changed_.notify_all();
  }
}

void ReadWriteMutex::lockWrite() const {
  const std::thread::id me = std::this_thread::get_id();
  std::unique_lock<std::mutex> lock(state_);
  if (writer_ == me) {
    ++writeDepth_;
    return;
  }
  const bool upgrading = readers_.count(me) != 0;
  if (upgrading && upgradesWaiting_ > 0) {
    throw KelMediaLibException(
        "ReadWriteMutex: two threads that hold read locks both asked for the write lock");
  }
  const std::size_t ownReads = upgrading ? 1 : 0;
  ++writersWaiting_;
  if (upgrading) {
    ++upgradesWaiting_;
  }
  changed_.wait(lock, [this, ownReads] { return writeDepth_ == 0 && readers_.size() == ownReads; });
  --writersWaiting_;
  if (upgrading) {
    --upgradesWaiting_;
  }
  writer_ = me;
  writeDepth_ = 1;
}

void ReadWriteMutex::unlockWrite() const {
  std::lock_guard<std::mutex> lock(state_);
  assert(writer_ == std::this_thread::get_id() && "unlockWrite by a thread that doesn't write");
  // Without the check a stray unlock would release another thread's write lock.
  if (writer_ != std::this_thread::get_id()) {
    return;
  }
  if (--writeDepth_ == 0) {
    writer_ = std::thread::id();
    changed_.notify_all();
  }
}

ReadWriteMutex::ScopedReadLock::ScopedReadLock(const ReadWriteMutex& mutex) : mutex_(mutex) {
  mutex_.lockRead();
}

ReadWriteMutex::ScopedReadLock::~ScopedReadLock() {
  mutex_.unlockRead();
}

ReadWriteMutex::ScopedWriteLock::ScopedWriteLock(const ReadWriteMutex& mutex) : mutex_(mutex) {
  mutex_.lockWrite();
}

ReadWriteMutex::ScopedWriteLock::~ScopedWriteLock() {
  mutex_.unlockWrite();
}

}  // namespace KelMediaLib
