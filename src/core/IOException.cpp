#include "core/IOException.h"

namespace KelMediaLib {

IOException::IOException(const std::string& message)
    : KelMediaLibException("IOException: " + message) {}

}  // namespace KelMediaLib
