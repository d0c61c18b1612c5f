#pragma once

#include "core/KelObject.h"
#include "core/Subject.h"
#include "core/XMLIdentified.h"
#include "core/XMLable.h"

#include <string>
#include <vector>

namespace KelMediaLib {

class ParameterDispatcher;

/// What every parameter offers whatever its value type: its name, the times of
/// its key frames and the neighbour queries, and the moving of a key frame.
/// A `Parametric` hands out its parameters as this type; callers reach the
/// typed `Parameter<T>` by a dynamic cast, or by `dispatch`.
///
/// Times are on the parameter's own axis. A parameter tells its observers,
/// once and synchronously, after each change of its key frames.
class ParameterInterface : public KelObject,
                           public Subject,
                           public XMLable,
                           public virtual XMLIdentified {
 public:
  ~ParameterInterface() override;

  virtual const std::string& name() const = 0;
  virtual unsigned int numKeyFrames() const = 0;
  /// Time of the first key frame; the largest 64-bit value when there is none.
  virtual long long firstKeyFrameTime() const = 0;
  /// Time of the last key frame; the smallest 64-bit value when there is none.
  virtual long long lastKeyFrameTime() const = 0;
  virtual bool hasKeyFrameAt(long long time) const = 0;
  /// Time of the last key frame strictly before `time`; the smallest 64-bit
  /// value when there is none.
  virtual long long prevKeyFrameTime(long long time) const = 0;
  /// Time of the first key frame strictly after `time`; the largest 64-bit
  /// value when there is none.
  virtual long long nextKeyFrameTime(long long time) const = 0;
  /// The times of all key frames, ascending.
  virtual std::vector<long long> keyFrameTimes() const = 0;
  /// The key frame at `oldTime`, the same object, now stands at `newTime`.
  /// Throws when there is no key frame at `oldTime` or one at `newTime`.
  virtual void moveKeyFrame(long long oldTime, long long newTime) = 0;
  /// Makes this parameter's key frames copies of those of `source`, a
  /// parameter of the same type (an interpolating parameter copies its
  /// interpolaters too). Throws on a parameter of another type.
  virtual void copyKeyFramesFrom(const ParameterInterface& source) = 0;
  /// Calls the `receive` of the dispatcher that fits this parameter's type.
  virtual void dispatch(ParameterDispatcher& dispatcher) = 0;
};

}  // namespace KelMediaLib
