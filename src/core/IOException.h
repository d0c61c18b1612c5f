#pragma once

#include "core/KelMediaLibException.h"

#include <string>

namespace KelMediaLib {

/// A failure to read or write a file; its text begins with "IOException: ".
class IOException : public KelMediaLibException {
 public:
  explicit IOException(const std::string& message);
};

}  // namespace KelMediaLib
