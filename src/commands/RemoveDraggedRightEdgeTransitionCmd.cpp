#include "commands/RemoveDraggedRightEdgeTransitionCmd.h"

#include "commands/EdgeModRemoveCmdGenerator.h"
#include "media/media/Media.h"

#include <boost/make_shared.hpp>

#include <ostream>
#include <vector>

namespace OrvMediaLib {

namespace {
const char* const kName = "RemoveDraggedRightEdgeTransitionCmd";
}  // namespace

RemoveDraggedRightEdgeTransitionCmd::RemoveDraggedRightEdgeTransitionCmd(
    boost::shared_ptr<const KelMediaLib::Media> media, const TransitionDescription& description)
    : RemoveDraggedEdgeTransitionCmd(
          kName, media, boost::make_shared<RightEdgeModRemoveCmdGenerator>(), description) {}

boost::shared_ptr<RemoveDraggedRightEdgeTransitionCmd> RemoveDraggedRightEdgeTransitionCmd::create(
    boost::shared_ptr<const KelMediaLib::Media> media, const TransitionDescription& description) {
  return boost::shared_ptr<RemoveDraggedRightEdgeTransitionCmd>(
      new RemoveDraggedRightEdgeTransitionCmd(media, description));
}

RemoveDraggedRightEdgeTransitionCmd* RemoveDraggedRightEdgeTransitionCmd::clone() const {
  return new RemoveDraggedRightEdgeTransitionCmd(*this);
}

std::string RemoveDraggedRightEdgeTransitionCmd::description() const {
  return kName;
}

void RemoveDraggedRightEdgeTransitionCmd::xmlName(Options& options) const {
  options.out << kName;
}

}  // namespace OrvMediaLib
