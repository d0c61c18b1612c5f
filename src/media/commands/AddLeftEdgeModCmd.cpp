#include "media/commands/AddLeftEdgeModCmd.h"

#include "media/media/Media.h"
#include "media/edges/EdgeModification.h"

namespace KelMediaLib {

AddLeftEdgeModCmd::AddLeftEdgeModCmd(boost::shared_ptr<const EdgeModifiable> edgeModifiable,
                                     const EdgeModification& modification)
    : AddEdgeModCmd("AddLeftEdgeModCmd", EdgeSide::Left, edgeModifiable, modification) {}

boost::shared_ptr<AddLeftEdgeModCmd> AddLeftEdgeModCmd::create(
    boost::shared_ptr<const Media> media, const EdgeModification& modification) {
  return boost::shared_ptr<AddLeftEdgeModCmd>(new AddLeftEdgeModCmd(media, modification));
}

AddLeftEdgeModCmd* AddLeftEdgeModCmd::clone() const {
  return new AddLeftEdgeModCmd(edgeModifiable(), modification());
}

}  // namespace KelMediaLib
