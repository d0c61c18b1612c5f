#include "media/commands/AddRightEdgeModCmd.h"

#include "media/media/Media.h"
#include "media/edges/EdgeModification.h"

namespace KelMediaLib {

AddRightEdgeModCmd::AddRightEdgeModCmd(boost::shared_ptr<const EdgeModifiable> edgeModifiable,
                                       const EdgeModification& modification)
    : AddEdgeModCmd("AddRightEdgeModCmd", EdgeSide::Right, edgeModifiable, modification) {}

boost::shared_ptr<AddRightEdgeModCmd> AddRightEdgeModCmd::create(
    boost::shared_ptr<const Media> media, const EdgeModification& modification) {
  return boost::shared_ptr<AddRightEdgeModCmd>(new AddRightEdgeModCmd(media, modification));
}

AddRightEdgeModCmd* AddRightEdgeModCmd::clone() const {
  return new AddRightEdgeModCmd(edgeModifiable(), modification());
}

}  // namespace KelMediaLib
