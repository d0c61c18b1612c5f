#include "actions/OrvException.h"

#include <utility>

namespace OrvMediaLib {

OrvException::OrvException(std::string message) : message_(std::move(message)) {}

const char* OrvException::what() const noexcept { return message_.c_str(); }

}  // namespace OrvMediaLib
