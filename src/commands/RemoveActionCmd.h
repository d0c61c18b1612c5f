#pragma once

#include "commands/OrvCommandImpl.h"

#include <boost/shared_ptr.hpp>

namespace KelMediaLib {
class CommandHandler;
}

namespace OrvMediaLib {

class Action;
class ActionBin;

/// Takes an action out of its bin, and its key frames out of the parameters.
/// The command keeps the action alive, so that undo puts the same object back
/// in the bin it came from.
class RemoveActionCmd : public OrvCommandImpl {
 public:
  /// Throws `OrvException` on a null action.
  static boost::shared_ptr<RemoveActionCmd> create(boost::shared_ptr<const Action> action);

  /// Removes the action and notes its bin; redo does the same again.
  void execute(KelMediaLib::CommandHandler* handler) override;
  /// Adds the action back to the noted bin.
  void unexecute(KelMediaLib::CommandHandler* handler) override;
  void reexecute(KelMediaLib::CommandHandler* handler) override;

  boost::shared_ptr<const Action> action() const { return action_; }
  /// The bin that the last `execute` took the action from; null before it.
  boost::shared_ptr<ActionBin> bin() const { return bin_; }

 private:
  explicit RemoveActionCmd(boost::shared_ptr<const Action> action);

  boost::shared_ptr<const Action> action_;
  boost::shared_ptr<ActionBin> bin_;
};

}  // namespace OrvMediaLib
