#include "actions/Transform.h"

namespace OrvMediaLib {

Transform::~Transform() = default;

}  // namespace OrvMediaLib
