#pragma once

#include "commands/OrvCommandImpl.h"

#include <boost/shared_ptr.hpp>

namespace KelMediaLib {
class CommandHandler;
}

namespace OrvMediaLib {

class Action;

/// Moves the start of an action by `delta` on its parameters' axis, the end
/// staying where it is: a positive `delta` shortens the action.
class TrimActionStartCmd : public OrvCommandImpl {
 public:
  /// Trims `delta` (key frame time) off the start of `action`; a negative one
  /// lengthens it. Throws `OrvException` on a null action.
  static boost::shared_ptr<TrimActionStartCmd> create(boost::shared_ptr<const Action> action,
                                                      long long delta);

  void execute(KelMediaLib::CommandHandler* handler) override;
  /// The same edit by `-delta`.
  void unexecute(KelMediaLib::CommandHandler* handler) override;
  void reexecute(KelMediaLib::CommandHandler* handler) override;

  boost::shared_ptr<const Action> action() const { return action_; }
  long long delta() const { return delta_; }

 private:
  TrimActionStartCmd(boost::shared_ptr<const Action> action, long long delta);

  boost::shared_ptr<const Action> action_;
  long long delta_;
};

}  // namespace OrvMediaLib
