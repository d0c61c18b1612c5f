#include "commands/RemoveDraggedEdgeTransitionCmd.h"

#include "commands/EdgeModRemoveCmdGenerator.h"
#include "media/media/Media.h"

#include <boost/make_shared.hpp>

namespace OrvMediaLib {

RemoveDraggedEdgeTransitionCmd::RemoveDraggedEdgeTransitionCmd(
    const char* name, boost::shared_ptr<const KelMediaLib::Media> media,
    boost::shared_ptr<const EdgeModRemoveCmdGenerator> generator,
    const TransitionDescription& description)
    : RemoveEdgeTransitionCmd(name, media, generator), description_(description) {}

boost::shared_ptr<RemoveEdgeTransitionCmd::ParameterList>
RemoveDraggedEdgeTransitionCmd::parameters(
    boost::shared_ptr<const KelMediaLib::Media> media) const {
  const auto list = boost::make_shared<ParameterList>();
  if (media) {
    for (const auto& modifier : description_) {
      list->push_back(modifier.parameterOf(*media));
    }
  }
  return list;
}

void RemoveDraggedEdgeTransitionCmd::removeEdgeMod(
    boost::shared_ptr<const KelMediaLib::Media> media,
    boost::shared_ptr<const KelMediaLib::Parameter<double>> parameter) {
  execute(generator().removeEdgeModCmd(media, parameter));
  execute(generator().trimEdgeModCmd(media));
}

}  // namespace OrvMediaLib
