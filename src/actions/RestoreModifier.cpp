#include "actions/RestoreModifier.h"

namespace OrvMediaLib {

double RestoreModifier::calcLeftValue(
    boost::shared_ptr<const KelMediaLib::Parameter<double>> parameter, const Transform&,
    long long time, double) const {
  return originalValue(parameter, static_cast<double>(time));
}

double RestoreModifier::calcRightValue(
    boost::shared_ptr<const KelMediaLib::Parameter<double>> parameter, const Transform&, long long,
    double) const {
  return originalValue(parameter, 0.0);
}

RestoreModifier* RestoreModifier::clone() const {
  return new RestoreModifier(*this);
}

}  // namespace OrvMediaLib
