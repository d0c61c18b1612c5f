#pragma once

#include "media/commands/NamedCommand.h"
#include "media/edges/EdgeModCommandHandler.h"

#include <boost/shared_ptr.hpp>

namespace KelMediaLib {

class EdgeModifiable;
class EdgeModification;

/// Base of the commands that change the length of the transition at one edge
/// of a media by `delta` timeline units (a transition is added with its new
/// length, taken away with the negative of its length); undo changes it back.
class MoveEdgeModCmd : public NamedCommand {
 public:
  bool execute(CommandHandler* handler) override;
  bool unexecute(CommandHandler* handler) override;

  boost::shared_ptr<const EdgeModifiable> edgeModifiable() const { return edgeModifiable_; }
  long long delta() const { return delta_; }

 protected:
  MoveEdgeModCmd(const char* name, EdgeSide side,
                 boost::shared_ptr<const EdgeModifiable> edgeModifiable, long long delta);

 private:
  EdgeSide side_;
  boost::shared_ptr<const EdgeModifiable> edgeModifiable_;
  long long delta_;
};

}  // namespace KelMediaLib
