#include "actions/ModifiedToOrig.h"

#include "actions/Transform.h"

namespace OrvMediaLib {

double ModifiedToOrig::calcLeftValue(
    boost::shared_ptr<const KelMediaLib::Parameter<double>> parameter, const Transform& transform,
    long long time, double value) const {
  return transform.transform(originalValue(parameter, static_cast<double>(time)), value);
}

double ModifiedToOrig::calcRightValue(
    boost::shared_ptr<const KelMediaLib::Parameter<double>> parameter, const Transform&,
    long long time, double) const {
  return originalValue(parameter, static_cast<double>(time));
}

ModifiedToOrig* ModifiedToOrig::clone() const {
  return new ModifiedToOrig(*this);
}

}  // namespace OrvMediaLib
