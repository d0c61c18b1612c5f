#include "edge/RightEdgeTransition.h"

#include "commands/RemoveSelectedRightEdgeTransitionCmd.h"

#include <iostream>

namespace OrvMediaLib {

RightEdgeTransition::RightEdgeTransition(boost::shared_ptr<const KelMediaLib::Media> media)
    : EdgeTransition(media) {}

boost::shared_ptr<KelMediaLib::Command> RightEdgeTransition::removeCmd() const {
  // A diagnostic of the right side only, kept because callers may look for it.
  std::cout << "creating RemoveSelectedRightEdgeTransitionCmd\n";
  return RemoveSelectedRightEdgeTransitionCmd::create(media());
}

}  // namespace OrvMediaLib
