#include "media/commands/MoveRightEdgeModCmd.h"

#include "media/edges/EdgeModification.h"

namespace KelMediaLib {

MoveRightEdgeModCmd::MoveRightEdgeModCmd(boost::shared_ptr<const EdgeModifiable> edgeModifiable,
                                         long long delta)
    : MoveEdgeModCmd("MoveRightEdgeModCmd", EdgeSide::Right, edgeModifiable, delta) {}

boost::shared_ptr<MoveRightEdgeModCmd> MoveRightEdgeModCmd::create(
    boost::shared_ptr<const EdgeModifiable> edgeModifiable, long long delta) {
  return boost::shared_ptr<MoveRightEdgeModCmd>(new MoveRightEdgeModCmd(edgeModifiable, delta));
}

MoveRightEdgeModCmd* MoveRightEdgeModCmd::clone() const {
  return new MoveRightEdgeModCmd(edgeModifiable(), delta());
}

}  // namespace KelMediaLib
