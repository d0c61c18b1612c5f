#include "actions/Modifier.h"

#include "values/Parameter.h"

#include <limits>

namespace OrvMediaLib {

Modifier::~Modifier() = default;

double Modifier::originalValue(
    const boost::shared_ptr<const KelMediaLib::Parameter<double>>& parameter, double time) {
  if (!parameter) {
    return std::numeric_limits<double>::quiet_NaN();
  }
  return parameter->valueAt(time);
}

}  // namespace OrvMediaLib
