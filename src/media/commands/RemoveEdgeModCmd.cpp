#include "media/commands/RemoveEdgeModCmd.h"

#include "core/CommandHandler.h"
#include "core/KelMediaLibException.h"
#include "media/commands/EdgeSides.h"
#include "media/edges/EdgeModification.h"

namespace KelMediaLib {

RemoveEdgeModCmd::RemoveEdgeModCmd(const char* name, EdgeSide side,
                                   boost::shared_ptr<const EdgeModifiable> edgeModifiable,
                                   boost::shared_ptr<const Parameter<double>> parameter)
    : NamedCommand(name), side_(side), edgeModifiable_(edgeModifiable), parameter_(parameter) {}

bool RemoveEdgeModCmd::execute(CommandHandler* handler) {
  if (!edgeModifiable_) {
    throw KelMediaLibException(description() + ": no media given");
  }
  const std::vector<boost::shared_ptr<const EdgeModification>> modifications =
      edgeModificationsOf(*edgeModifiable_, side_);
  EdgeModCommandHandler* edges = handler->edgeModCommandHandler();
  std::vector<Removal> removed;
  // Back to front, so that the indices still to visit stay put.
  for (int i = static_cast<int>(modifications.size()); i-- > 0;) {
    if (modifications[static_cast<std::size_t>(i)]->parameter() == parameter_) {
      removed.push_back(Removal{i, edges->removeEdgeModification(edgeModifiable_, side_, i)});
    }
  }
  removed_.swap(removed);
  return !removed_.empty();
}

bool RemoveEdgeModCmd::unexecute(CommandHandler* handler) {
  EdgeModCommandHandler* edges = handler->edgeModCommandHandler();
  for (auto it = removed_.rbegin(); it != removed_.rend(); ++it) {
    edges->insertEdgeModification(edgeModifiable_, side_, it->modification, it->index);
  }
  return true;
}

}  // namespace KelMediaLib
