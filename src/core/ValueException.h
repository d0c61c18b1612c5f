#pragma once

#include "core/KelMediaLibException.h"

#include <string>

namespace KelMediaLib {

/// A failure that carries a copy of the value at fault (a shared pointer is
/// shared, not deep-copied).
template <class T>
class ValueException : public KelMediaLibException {
 public:
  ValueException(const std::string& message, const T& offending)
      : KelMediaLibException(message), value(offending) {}

  T value;
};

}  // namespace KelMediaLib
