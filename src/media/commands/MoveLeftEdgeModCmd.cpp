#include "media/commands/MoveLeftEdgeModCmd.h"

#include "media/edges/EdgeModification.h"

namespace KelMediaLib {

MoveLeftEdgeModCmd::MoveLeftEdgeModCmd(boost::shared_ptr<const EdgeModifiable> edgeModifiable,
                                       long long delta)
    : MoveEdgeModCmd("MoveLeftEdgeModCmd", EdgeSide::Left, edgeModifiable, delta) {}

boost::shared_ptr<MoveLeftEdgeModCmd> MoveLeftEdgeModCmd::create(
    boost::shared_ptr<const EdgeModifiable> edgeModifiable, long long delta) {
  return boost::shared_ptr<MoveLeftEdgeModCmd>(new MoveLeftEdgeModCmd(edgeModifiable, delta));
}

MoveLeftEdgeModCmd* MoveLeftEdgeModCmd::clone() const {
  return new MoveLeftEdgeModCmd(edgeModifiable(), delta());
}

}  // namespace KelMediaLib
