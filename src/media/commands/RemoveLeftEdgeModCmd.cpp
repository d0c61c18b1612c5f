#include "media/commands/RemoveLeftEdgeModCmd.h"

#include "media/edges/EdgeModification.h"

namespace KelMediaLib {

RemoveLeftEdgeModCmd::RemoveLeftEdgeModCmd(boost::shared_ptr<const EdgeModifiable> edgeModifiable,
                                           boost::shared_ptr<const Parameter<double>> parameter)
    : RemoveEdgeModCmd("RemoveLeftEdgeModCmd", EdgeSide::Left, edgeModifiable, parameter) {}

boost::shared_ptr<RemoveLeftEdgeModCmd> RemoveLeftEdgeModCmd::create(
    boost::shared_ptr<const EdgeModifiable> edgeModifiable,
    boost::shared_ptr<const Parameter<double>> parameter) {
  return boost::shared_ptr<RemoveLeftEdgeModCmd>(
      new RemoveLeftEdgeModCmd(edgeModifiable, parameter));
}

RemoveLeftEdgeModCmd* RemoveLeftEdgeModCmd::clone() const {
  return new RemoveLeftEdgeModCmd(edgeModifiable(), parameter());
}

}  // namespace KelMediaLib
