#include "media/commands/MoveEdgeModCmd.h"

#include "core/CommandHandler.h"
#include "core/KelMediaLibException.h"
#include "media/commands/EdgeSides.h"
#include "media/edges/EdgeModification.h"

namespace KelMediaLib {

MoveEdgeModCmd::MoveEdgeModCmd(const char* name, EdgeSide side,
                               boost::shared_ptr<const EdgeModifiable> edgeModifiable,
                               long long delta)
    : NamedCommand(name), side_(side), edgeModifiable_(edgeModifiable), delta_(delta) {}

bool MoveEdgeModCmd::execute(CommandHandler* handler) {
  handler->edgeModCommandHandler()->changeEdgeLength(edgeModifiable_, side_, delta_);
  return true;
}

bool MoveEdgeModCmd::unexecute(CommandHandler* handler) {
  handler->edgeModCommandHandler()->changeEdgeLength(edgeModifiable_, side_, -delta_);
  return true;
}

}  // namespace KelMediaLib
