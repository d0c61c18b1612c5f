#include "values/ParameterInterface.h"

namespace KelMediaLib {

ParameterInterface::~ParameterInterface() = default;

}  // namespace KelMediaLib
