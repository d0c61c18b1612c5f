#pragma once

#include "actions/Modifier.h"

namespace OrvMediaLib {

/// Fades in a value such as an opacity: the left starts from 0 when the parameter stands at its
/// full value of 1 (a partial value is kept as it stands), and the right is the transformed value,
/// at most 1.
class FadeInModifier : public Modifier {
 public:
  double calcLeftValue(boost::shared_ptr<const KelMediaLib::Parameter<double>> parameter,
                       const Transform& transform, long long time, double value) const override;
  double calcRightValue(boost::shared_ptr<const KelMediaLib::Parameter<double>> parameter,
                        const Transform& transform, long long time, double value) const override;
  /// A new FadeInModifier; the caller owns it.
  FadeInModifier* clone() const override;
};

}  // namespace OrvMediaLib
