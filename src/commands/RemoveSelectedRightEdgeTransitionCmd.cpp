#include "commands/RemoveSelectedRightEdgeTransitionCmd.h"

#include "commands/EdgeModRemoveCmdGenerator.h"
#include "media/media/Media.h"

#include <boost/make_shared.hpp>

#include <ostream>
#include <vector>

namespace OrvMediaLib {

namespace {
const char* const kName = "RemoveSelectedRightEdgeTransitionCmd";
}  // namespace

RemoveSelectedRightEdgeTransitionCmd::RemoveSelectedRightEdgeTransitionCmd(
    boost::shared_ptr<const KelMediaLib::Media> media)
    : RemoveSelectedEdgeTransitionCmd(kName, media,
                                      boost::make_shared<RightEdgeModRemoveCmdGenerator>()) {}

boost::shared_ptr<RemoveSelectedRightEdgeTransitionCmd>
RemoveSelectedRightEdgeTransitionCmd::create(boost::shared_ptr<const KelMediaLib::Media> media) {
  return boost::shared_ptr<RemoveSelectedRightEdgeTransitionCmd>(
      new RemoveSelectedRightEdgeTransitionCmd(media));
}

RemoveSelectedRightEdgeTransitionCmd* RemoveSelectedRightEdgeTransitionCmd::clone() const {
  return new RemoveSelectedRightEdgeTransitionCmd(*this);
}

std::string RemoveSelectedRightEdgeTransitionCmd::description() const {
  return kName;
}

void RemoveSelectedRightEdgeTransitionCmd::xmlName(Options& options) const {
  options.out << kName;
}

boost::shared_ptr<RemoveEdgeTransitionCmd::ParameterList>
RemoveSelectedRightEdgeTransitionCmd::parameters(
    boost::shared_ptr<const KelMediaLib::Media> media) const {
  return parametersOf(media
                          ? media->rightEdgeModifications()
                          : std::vector<boost::shared_ptr<const KelMediaLib::EdgeModification>>());
}

}  // namespace OrvMediaLib
