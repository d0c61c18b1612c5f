#include "media/commands/RemoveRightEdgeModCmd.h"

#include "media/edges/EdgeModification.h"

namespace KelMediaLib {

RemoveRightEdgeModCmd::RemoveRightEdgeModCmd(boost::shared_ptr<const EdgeModifiable> edgeModifiable,
                                             boost::shared_ptr<const Parameter<double>> parameter)
    : RemoveEdgeModCmd("RemoveRightEdgeModCmd", EdgeSide::Right, edgeModifiable, parameter) {}

boost::shared_ptr<RemoveRightEdgeModCmd> RemoveRightEdgeModCmd::create(
    boost::shared_ptr<const EdgeModifiable> edgeModifiable,
    boost::shared_ptr<const Parameter<double>> parameter) {
  return boost::shared_ptr<RemoveRightEdgeModCmd>(
      new RemoveRightEdgeModCmd(edgeModifiable, parameter));
}

RemoveRightEdgeModCmd* RemoveRightEdgeModCmd::clone() const {
  return new RemoveRightEdgeModCmd(edgeModifiable(), parameter());
}

}  // namespace KelMediaLib
