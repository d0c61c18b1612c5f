#pragma once

#include "actions/Modifier.h"

namespace OrvMediaLib {

/// Returns a parameter to where it stood at the start of the media's time: the original value at
/// the left, and at the right the value at time 0, whatever the time, transform and value.
class RestoreModifier : public Modifier {
 public:
  double calcLeftValue(boost::shared_ptr<const KelMediaLib::Parameter<double>> parameter,
                       const Transform& transform, long long time, double value) const override;
  double calcRightValue(boost::shared_ptr<const KelMediaLib::Parameter<double>> parameter,
                        const Transform& transform, long long time, double value) const override;
  /// A new RestoreModifier; the caller owns it.
  RestoreModifier* clone() const override;
};

}  // namespace OrvMediaLib
