#pragma once

#include "media/commands/NamedCommand.h"
#include "media/edges/EdgeModCommandHandler.h"
#include "values/Parameter.h"

#include <boost/shared_ptr.hpp>

#include <vector>

namespace KelMediaLib {

class EdgeModifiable;
class EdgeModification;

/// Base of the commands that take away, from one edge of a media, every
/// modification of a parameter (a null parameter meaning the modifications
/// without one). Undo puts each back at its index. A run that finds none
/// does nothing and returns false.
class RemoveEdgeModCmd : public NamedCommand {
 public:
  bool execute(CommandHandler* handler) override;
  bool unexecute(CommandHandler* handler) override;

  boost::shared_ptr<const EdgeModifiable> edgeModifiable() const { return edgeModifiable_; }
  /// The parameter whose modifications go; null for those without one.
  boost::shared_ptr<const Parameter<double>> parameter() const { return parameter_; }

 protected:
  RemoveEdgeModCmd(const char* name, EdgeSide side,
                   boost::shared_ptr<const EdgeModifiable> edgeModifiable,
                   boost::shared_ptr<const Parameter<double>> parameter);

 private:
  // One modification taken away and the index it had.
  struct Removal {
    int index;
    boost::shared_ptr<const EdgeModification> modification;
  };

  EdgeSide side_;
  boost::shared_ptr<const EdgeModifiable> edgeModifiable_;
  boost::shared_ptr<const Parameter<double>> parameter_;
  std::vector<Removal> removed_;
};

}  // namespace KelMediaLib
