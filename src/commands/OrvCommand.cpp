#include "commands/OrvCommand.h"

namespace OrvMediaLib {

OrvCommand::~OrvCommand() = default;

}  // namespace OrvMediaLib
