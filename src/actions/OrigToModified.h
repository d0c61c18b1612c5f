#pragma once

#include "actions/Modifier.h"

namespace OrvMediaLib {

/// Shows the original value at the left and the transformed one at the right.
class OrigToModified : public Modifier {
 public:
  double calcLeftValue(boost::shared_ptr<const KelMediaLib::Parameter<double>> parameter,
                       const Transform& transform, long long time, double value) const override;
  double calcRightValue(boost::shared_ptr<const KelMediaLib::Parameter<double>> parameter,
                        const Transform& transform, long long time, double value) const override;
  /// A new OrigToModified; the caller owns it.
  OrigToModified* clone() const override;
};

}  // namespace OrvMediaLib
