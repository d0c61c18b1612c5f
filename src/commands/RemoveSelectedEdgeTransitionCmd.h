#pragma once

#include "commands/RemoveEdgeTransitionCmd.h"

#include <boost/shared_ptr.hpp>

#include <vector>

namespace KelMediaLib {
class EdgeModification;
}  // namespace KelMediaLib

namespace OrvMediaLib {

/// Takes off an edge everything on it (a transition selected and deleted):
/// the modifications of every parameter that the edge modifies, and the
/// edge's length. The side's subclass says which edge's modifications count.
class RemoveSelectedEdgeTransitionCmd : public RemoveEdgeTransitionCmd {
 protected:
  using RemoveEdgeTransitionCmd::RemoveEdgeTransitionCmd;

  /// The parameter of each modification, in the edge's order.
  static boost::shared_ptr<ParameterList> parametersOf(
      const std::vector<boost::shared_ptr<const KelMediaLib::EdgeModification>>& modifications);
};

}  // namespace OrvMediaLib
