#pragma once

#include "actions/Modifier.h"

namespace OrvMediaLib {

/// Like `OrigToModified`, with the right value held to at most `ceiling`.
class OrigToModifiedWithCeiling : public Modifier {
 public:
  explicit OrigToModifiedWithCeiling(double ceiling);

  /// The greatest right value.
  double ceiling() const { return ceiling_; }

  double calcLeftValue(boost::shared_ptr<const KelMediaLib::Parameter<double>> parameter,
                       const Transform& transform, long long time, double value) const override;
  double calcRightValue(boost::shared_ptr<const KelMediaLib::Parameter<double>> parameter,
                        const Transform& transform, long long time, double value) const override;
  /// A new OrigToModifiedWithCeiling; the caller owns it.
  OrigToModifiedWithCeiling* clone() const override;

 private:
  double ceiling_;
};

}  // namespace OrvMediaLib
