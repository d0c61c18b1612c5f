#include "media/parser/LoadCancelledException.h"

namespace KelMediaLib {

LoadCancelledException::LoadCancelledException() : KelMediaLibException("load cancelled") {}

}  // namespace KelMediaLib
