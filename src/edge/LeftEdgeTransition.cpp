#include "edge/LeftEdgeTransition.h"

#include "commands/RemoveSelectedLeftEdgeTransitionCmd.h"

namespace OrvMediaLib {

LeftEdgeTransition::LeftEdgeTransition(boost::shared_ptr<const KelMediaLib::Media> media)
    : EdgeTransition(media) {}

boost::shared_ptr<KelMediaLib::Command> LeftEdgeTransition::removeCmd() const {
  return RemoveSelectedLeftEdgeTransitionCmd::create(media());
}

}  // namespace OrvMediaLib
