#include "commands/OrvCommandHandler.h"

namespace OrvMediaLib {

OrvCommandHandler::~OrvCommandHandler() = default;

}  // namespace OrvMediaLib
