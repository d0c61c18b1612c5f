#pragma once

#include "core/ReadWriteMutex.h"
#include "core/ThreadSafe.h"

#include <boost/shared_ptr.hpp>

#include <memory>
#include <utility>
#include <vector>

namespace KelMediaLib {

template <class T>
class Parameter;

/// Forward iterator over the key frames of a parameter, holding a read lock
/// of the parameter's project for as long as it, or a copy of it, lives.
///
/// Equal iterators have the same parameter and the same time; the end
/// iterator stands at the largest 64-bit time. `++` moves to the next key
/// frame's time, so key frames may be added, moved or removed while iterating
/// (the lock admits the writing of the thread that holds it). `operator->`
/// returns a new pair of time and value on each call, owned by this iterator
/// until it dies; a copy starts with none.
template <class T>
class ParameterIterator {
 public:
  typedef std::pair<long long, T> value_type;

  /// Takes the read lock. Throws `boost::bad_weak_ptr` when the parameter's
  /// project has gone.
  ParameterIterator(long long time, const Parameter<T>* parameter);
  ParameterIterator(const ParameterIterator& other);
  ParameterIterator& operator=(const ParameterIterator& other);

  bool operator==(const ParameterIterator& other) const {
    return parameter == other.parameter && time == other.time;
  }
  bool operator!=(const ParameterIterator& other) const { return !(*this == other); }

  ParameterIterator& operator++();
  const value_type* operator->() const;
  value_type operator*() const;

  /// Time of the current key frame.
  long long time;
  const Parameter<T>* parameter;
  boost::shared_ptr<ReadWriteMutex::ScopedReadLock> lock;

 private:
  mutable std::vector<std::unique_ptr<value_type>> values_;
};

}  // namespace KelMediaLib

#include "values/Parameter.h"

namespace KelMediaLib {

namespace detail {

// Keeps the project alive as long as the lock on its mutex.
template <class Owner>
struct ProjectReadLock {
  explicit ProjectReadLock(const boost::shared_ptr<Owner>& project)
      : owner(project), lock(project->mutex()) {}
  boost::shared_ptr<Owner> owner;
  ReadWriteMutex::ScopedReadLock lock;
};

}  // namespace detail

template <class T>
ParameterIterator<T>::ParameterIterator(long long startTime, const Parameter<T>* of)
    : time(startTime), parameter(of) {
  const boost::shared_ptr<const ThreadSafe> project(parameter->projectMutex());
  const auto holder = boost::shared_ptr<detail::ProjectReadLock<const ThreadSafe>>(
      new detail::ProjectReadLock<const ThreadSafe>(project));
  lock = boost::shared_ptr<ReadWriteMutex::ScopedReadLock>(holder, &holder->lock);
}

template <class T>
ParameterIterator<T>::ParameterIterator(const ParameterIterator& other)
    : time(other.time), parameter(other.parameter), lock(other.lock) {}

template <class T>
ParameterIterator<T>& ParameterIterator<T>::operator=(const ParameterIterator& other) {
  time = other.time;
  parameter = other.parameter;
  lock = other.lock;
  return *this;
}

template <class T>
ParameterIterator<T>& ParameterIterator<T>::operator++() {
  time = parameter->nextKeyFrameTime(time);
  return *this;
}

template <class T>
const typename ParameterIterator<T>::value_type* ParameterIterator<T>::operator->() const {
  values_.emplace_back(new value_type(time, parameter->valueAt(static_cast<double>(time))));
  return values_.back().get();
}

template <class T>
typename ParameterIterator<T>::value_type ParameterIterator<T>::operator*() const {
  return value_type(time, parameter->valueAt(static_cast<double>(time)));
}

}  // namespace KelMediaLib
