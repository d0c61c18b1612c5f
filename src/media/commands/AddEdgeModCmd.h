#pragma once

#include "media/commands/NamedCommand.h"
#include "media/edges/EdgeModCommandHandler.h"

#include <boost/shared_ptr.hpp>

namespace KelMediaLib {

class EdgeModifiable;
class EdgeModification;

/// Base of the commands that append a modification to one edge of a media;
/// undo takes it out of its place again, redo puts the same object back there.
class AddEdgeModCmd : public NamedCommand {
 public:
  bool execute(CommandHandler* handler) override;
  bool unexecute(CommandHandler* handler) override;
  bool reexecute(CommandHandler* handler) override;

  boost::shared_ptr<const EdgeModifiable> edgeModifiable() const { return edgeModifiable_; }
  /// The modification that the command puts on the edge.
  const EdgeModification& modification() const { return *modification_; }

 protected:
  AddEdgeModCmd(const char* name, EdgeSide side,
                boost::shared_ptr<const EdgeModifiable> edgeModifiable,
                const EdgeModification& modification);

 private:
  EdgeSide side_;
  boost::shared_ptr<const EdgeModifiable> edgeModifiable_;
  boost::shared_ptr<const EdgeModification> modification_;
  int index_;
};

}  // namespace KelMediaLib
