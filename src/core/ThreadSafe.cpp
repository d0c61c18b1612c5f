#include "core/ThreadSafe.h"

namespace KelMediaLib {

ThreadSafe::ThreadSafe() = default;

ThreadSafe::~ThreadSafe() = default;

ReadWriteMutex& ThreadSafe::mutex() const { return mutex_; }

}  // namespace KelMediaLib
