#pragma once

#include "commands/OrvCommandImpl.h"

#include <boost/shared_ptr.hpp>

namespace KelMediaLib {
class CommandHandler;
}

namespace OrvMediaLib {

class Action;

/// Moves an action and its key frames by `delta` on its parameters' axis.
class MoveActionCmd : public OrvCommandImpl {
 public:
  /// Moves `action` by `delta` (key frame time; positive is later). Throws
  /// `OrvException` on a null action.
  static boost::shared_ptr<MoveActionCmd> create(boost::shared_ptr<const Action> action,
                                                 long long delta);

  void execute(KelMediaLib::CommandHandler* handler) override;
  /// The same edit by `-delta`.
  void unexecute(KelMediaLib::CommandHandler* handler) override;
  void reexecute(KelMediaLib::CommandHandler* handler) override;

  boost::shared_ptr<const Action> action() const { return action_; }
  long long delta() const { return delta_; }

 private:
  MoveActionCmd(boost::shared_ptr<const Action> action, long long delta);

  boost::shared_ptr<const Action> action_;
  long long delta_;
};

}  // namespace OrvMediaLib
