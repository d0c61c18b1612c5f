#pragma once

#include <exception>
#include <string>

namespace OrvMediaLib {

/// The one failure type of the editing model's own code, always with a
/// literal English text.
class OrvException : public std::exception {
 public:
  explicit OrvException(std::string message);
  const char* what() const noexcept override;

 private:
  std::string message_;
};

}  // namespace OrvMediaLib
