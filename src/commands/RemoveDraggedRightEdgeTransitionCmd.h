#pragma once

#include "commands/RemoveDraggedEdgeTransitionCmd.h"

#include <boost/shared_ptr.hpp>

#include <string>

namespace OrvMediaLib {

/// Takes what `description` names off the right edge of a media (its end).
class RemoveDraggedRightEdgeTransitionCmd : public RemoveDraggedEdgeTransitionCmd {
 public:
  /// Throws `OrvException` on a null media.
  static boost::shared_ptr<RemoveDraggedRightEdgeTransitionCmd> create(
      boost::shared_ptr<const KelMediaLib::Media> media, const TransitionDescription& description);

  RemoveDraggedRightEdgeTransitionCmd* clone() const override;
  /// "RemoveDraggedRightEdgeTransitionCmd", also the element name in a trace.
  std::string description() const override;
  void xmlName(Options& options) const override;

 protected:
  RemoveDraggedRightEdgeTransitionCmd(boost::shared_ptr<const KelMediaLib::Media> media,
                                      const TransitionDescription& description);
};

}  // namespace OrvMediaLib
