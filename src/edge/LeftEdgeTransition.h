#pragma once

#include "edge/EdgeTransition.h"

namespace OrvMediaLib {

/// The transition on the left edge of a media (its start).
class LeftEdgeTransition : public EdgeTransition {
 public:
  /// Throws `OrvException` on a null media.
  explicit LeftEdgeTransition(boost::shared_ptr<const KelMediaLib::Media> media);

  /// A `RemoveSelectedLeftEdgeTransitionCmd` for the media.
  boost::shared_ptr<KelMediaLib::Command> removeCmd() const override;
};

}  // namespace OrvMediaLib
