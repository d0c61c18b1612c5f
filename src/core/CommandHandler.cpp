#include "core/CommandHandler.h"

namespace KelMediaLib {

CommandHandler::~CommandHandler() = default;

}  // namespace KelMediaLib
