#pragma once

#include "edge/EdgeTransition.h"

namespace OrvMediaLib {

/// The transition on the right edge of a media (its end).
class RightEdgeTransition : public EdgeTransition {
 public:
  /// Throws `OrvException` on a null media.
  explicit RightEdgeTransition(boost::shared_ptr<const KelMediaLib::Media> media);

  /// A `RemoveSelectedRightEdgeTransitionCmd` for the media.
  /// Announces itself on standard output as it is made.
  boost::shared_ptr<KelMediaLib::Command> removeCmd() const override;
};

}  // namespace OrvMediaLib
