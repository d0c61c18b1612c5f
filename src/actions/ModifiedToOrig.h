#pragma once

#include "actions/Modifier.h"

namespace OrvMediaLib {

/// Shows the transformed value at the left and the original one at the right.
class ModifiedToOrig : public Modifier {
 public:
  double calcLeftValue(boost::shared_ptr<const KelMediaLib::Parameter<double>> parameter,
                       const Transform& transform, long long time, double value) const override;
  double calcRightValue(boost::shared_ptr<const KelMediaLib::Parameter<double>> parameter,
                        const Transform& transform, long long time, double value) const override;
  /// A new ModifiedToOrig; the caller owns it.
  ModifiedToOrig* clone() const override;
};

}  // namespace OrvMediaLib
