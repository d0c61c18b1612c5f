#pragma once

#include <stdexcept>
#include <string>

namespace KelMediaLib {

/// Failure of the media model: a misuse or bad input, with a text that names
/// the object and the value at fault.
class KelMediaLibException : public std::runtime_error {
 public:
  explicit KelMediaLibException(const std::string& message);
};

}  // namespace KelMediaLib
