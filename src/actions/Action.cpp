#include "actions/Action.h"

namespace OrvMediaLib {

Action::~Action() = default;

}  // namespace OrvMediaLib
