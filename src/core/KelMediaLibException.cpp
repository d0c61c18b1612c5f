#include "core/KelMediaLibException.h"

namespace KelMediaLib {

KelMediaLibException::KelMediaLibException(const std::string& message)
    : std::runtime_error(message) {}

}  // namespace KelMediaLib
