#pragma once

#include "actions/ActionImpl.h"

namespace OrvMediaLib {

/// An action anywhere inside a media. Written as `<CenterAction timeRange>`
/// with its `<ParameterRanges>`.
class CenterAction : public ActionImpl {
 public:
  /// An action on `parametric` whose own range is `timeRange` until it gets a
  /// parameter range. Throws `OrvException` on a null parametric.
  CenterAction(boost::shared_ptr<const KelMediaLib::Parametric> parametric,
               const KelMediaLib::Range<long long>& timeRange);
  /// The same with the range (0, 0).
  explicit CenterAction(boost::shared_ptr<const KelMediaLib::Parametric> parametric);
  /// Shares the ranges of `other`.
  CenterAction(const CenterAction& other);

  CenterAction* clone() const override;
  void xmlName(Options& options) const override;
};

}  // namespace OrvMediaLib
