#pragma once

#include "commands/RemoveDraggedEdgeTransitionCmd.h"

#include <boost/shared_ptr.hpp>

#include <string>

namespace OrvMediaLib {

/// Takes what `description` names off the left edge of a media (its start).
class RemoveDraggedLeftEdgeTransitionCmd : public RemoveDraggedEdgeTransitionCmd {
 public:
  /// Throws `OrvException` on a null media.
  static boost::shared_ptr<RemoveDraggedLeftEdgeTransitionCmd> create(
      boost::shared_ptr<const KelMediaLib::Media> media, const TransitionDescription& description);

  RemoveDraggedLeftEdgeTransitionCmd* clone() const override;
  /// "RemoveDraggedLeftEdgeTransitionCmd", also the element name in a trace.
  std::string description() const override;
  void xmlName(Options& options) const override;

 protected:
  RemoveDraggedLeftEdgeTransitionCmd(boost::shared_ptr<const KelMediaLib::Media> media,
                                     const TransitionDescription& description);
};

}  // namespace OrvMediaLib
