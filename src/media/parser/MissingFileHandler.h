#pragma once

#include <string>

namespace KelMediaLib {

/// Asked by the reader when a source file of a project isn't where the file
/// says it is.
class MissingFileHandler {
 public:
  virtual ~MissingFileHandler() = default;
  /// Returns the path to use instead, or the empty string to go on without
  /// the source (media that show it then fail to load).
  virtual std::string handleMissingFile(const std::string& path) = 0;
};

}  // namespace KelMediaLib
