#include "commands/RemoveDraggedLeftEdgeTransitionCmd.h"

#include "commands/EdgeModRemoveCmdGenerator.h"
#include "media/media/Media.h"

#include <boost/make_shared.hpp>

#include <ostream>
#include <vector>

namespace OrvMediaLib {

namespace {
const char* const kName = "RemoveDraggedLeftEdgeTransitionCmd";
}  // namespace

RemoveDraggedLeftEdgeTransitionCmd::RemoveDraggedLeftEdgeTransitionCmd(
    boost::shared_ptr<const KelMediaLib::Media> media, const TransitionDescription& description)
    : RemoveDraggedEdgeTransitionCmd(
          kName, media, boost::make_shared<LeftEdgeModRemoveCmdGenerator>(), description) {}

boost::shared_ptr<RemoveDraggedLeftEdgeTransitionCmd> RemoveDraggedLeftEdgeTransitionCmd::create(
    boost::shared_ptr<const KelMediaLib::Media> media, const TransitionDescription& description) {
  return boost::shared_ptr<RemoveDraggedLeftEdgeTransitionCmd>(
      new RemoveDraggedLeftEdgeTransitionCmd(media, description));
}

RemoveDraggedLeftEdgeTransitionCmd* RemoveDraggedLeftEdgeTransitionCmd::clone() const {
  return new RemoveDraggedLeftEdgeTransitionCmd(*this);
}

std::string RemoveDraggedLeftEdgeTransitionCmd::description() const {
  return kName;
}

void RemoveDraggedLeftEdgeTransitionCmd::xmlName(Options& options) const {
  options.out << kName;
}

}  // namespace OrvMediaLib
