#include "commands/RemoveSelectedLeftEdgeTransitionCmd.h"

#include "commands/EdgeModRemoveCmdGenerator.h"
#include "media/media/Media.h"

#include <boost/make_shared.hpp>

#include <ostream>
#include <vector>

namespace OrvMediaLib {

namespace {
const char* const kName = "RemoveSelectedLeftEdgeTransitionCmd";
}  // namespace

RemoveSelectedLeftEdgeTransitionCmd::RemoveSelectedLeftEdgeTransitionCmd(
    boost::shared_ptr<const KelMediaLib::Media> media)
    : RemoveSelectedEdgeTransitionCmd(kName, media,
                                      boost::make_shared<LeftEdgeModRemoveCmdGenerator>()) {}

boost::shared_ptr<RemoveSelectedLeftEdgeTransitionCmd> RemoveSelectedLeftEdgeTransitionCmd::create(
    boost::shared_ptr<const KelMediaLib::Media> media) {
  return boost::shared_ptr<RemoveSelectedLeftEdgeTransitionCmd>(
      new RemoveSelectedLeftEdgeTransitionCmd(media));
}

RemoveSelectedLeftEdgeTransitionCmd* RemoveSelectedLeftEdgeTransitionCmd::clone() const {
  return new RemoveSelectedLeftEdgeTransitionCmd(*this);
}

std::string RemoveSelectedLeftEdgeTransitionCmd::description() const {
  return kName;
}

void RemoveSelectedLeftEdgeTransitionCmd::xmlName(Options& options) const {
  options.out << kName;
}

boost::shared_ptr<RemoveEdgeTransitionCmd::ParameterList>
RemoveSelectedLeftEdgeTransitionCmd::parameters(
    boost::shared_ptr<const KelMediaLib::Media> media) const {
  return parametersOf(media
                          ? media->leftEdgeModifications()
                          : std::vector<boost::shared_ptr<const KelMediaLib::EdgeModification>>());
}

}  // namespace OrvMediaLib
