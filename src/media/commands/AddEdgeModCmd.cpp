#include "media/commands/AddEdgeModCmd.h"

#include "core/CommandHandler.h"
#include "core/KelMediaLibException.h"
#include "media/commands/EdgeSides.h"
#include "media/edges/EdgeModification.h"

namespace KelMediaLib {

AddEdgeModCmd::AddEdgeModCmd(const char* name, EdgeSide side,
                             boost::shared_ptr<const EdgeModifiable> edgeModifiable,
                             const EdgeModification& modification)
    : NamedCommand(name),
      side_(side),
      edgeModifiable_(edgeModifiable),
      modification_(new EdgeModification(modification)),
      index_(-1) {}

bool AddEdgeModCmd::execute(CommandHandler* handler) {
  if (!edgeModifiable_) {
    throw KelMediaLibException(description() + ": no media given");
  }
  const int index = static_cast<int>(edgeModificationsOf(*edgeModifiable_, side_).size());
  handler->edgeModCommandHandler()->insertEdgeModification(edgeModifiable_, side_, modification_,
                                                           index);
  index_ = index;
  return true;
}

bool AddEdgeModCmd::unexecute(CommandHandler* handler) {
  handler->edgeModCommandHandler()->removeEdgeModification(edgeModifiable_, side_, index_);
  return true;
}

bool AddEdgeModCmd::reexecute(CommandHandler* handler) {
  handler->edgeModCommandHandler()->insertEdgeModification(edgeModifiable_, side_, modification_,
                                                           index_);
  return true;
}

}  // namespace KelMediaLib
