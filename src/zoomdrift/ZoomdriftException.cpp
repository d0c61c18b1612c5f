#include "zoomdrift/ZoomdriftException.h"

namespace ZoomdriftNS {

ZoomdriftException::ZoomdriftException(std::string const& message, ZDERR_CODES const& errorCode)
    : message_(message), errorCode_(errorCode) {}

const char* ZoomdriftException::what() const noexcept {
  return message_.c_str();
}

}  // namespace ZoomdriftNS
