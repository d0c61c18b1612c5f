#pragma once

#include "core/KelMediaLibException.h"

#include <iosfwd>
#include <string>

namespace KelMediaLib {

/// A fault in a project file. Thrown with line and column 0 by the code that
/// finds the fault; the reader fills in the position of the element that was
/// being read on the way out. `what()` is the bare message.
class ParserException : public KelMediaLibException {
 public:
  ParserException(const std::string& message, int line, int column);

  /// The message followed by the position, e.g.
  /// `Unexpected name "Foo" in Project (line 3, column 5)`.
  std::string positionText() const;

  int line;
  int column;
};

std::ostream& operator<<(std::ostream& out, const ParserException& exception);

}  // namespace KelMediaLib
