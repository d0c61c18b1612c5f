#pragma once

#include "core/KelMediaLibException.h"

namespace KelMediaLib {

/// Thrown by a load whose progress callback asked to stop; the text is
/// "load cancelled". Nothing of the load is kept.
class LoadCancelledException : public KelMediaLibException {
 public:
  LoadCancelledException();
};

}  // namespace KelMediaLib
