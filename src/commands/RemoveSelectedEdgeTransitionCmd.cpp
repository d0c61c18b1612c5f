#include "commands/RemoveSelectedEdgeTransitionCmd.h"

#include "media/edges/EdgeModification.h"

#include <boost/make_shared.hpp>

namespace OrvMediaLib {

boost::shared_ptr<RemoveEdgeTransitionCmd::ParameterList>
RemoveSelectedEdgeTransitionCmd::parametersOf(
    const std::vector<boost::shared_ptr<const KelMediaLib::EdgeModification>>& modifications) {
  const auto list = boost::make_shared<ParameterList>();
  for (const auto& modification : modifications) {
    list->push_back(modification->parameter());
  }
  return list;
}

}  // namespace OrvMediaLib
