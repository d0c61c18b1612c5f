#pragma once

#include "commands/OrvCommandImpl.h"

#include <boost/shared_ptr.hpp>

namespace KelMediaLib {
class CommandHandler;
}

namespace OrvMediaLib {

class Action;
class ParameterRange;

/// Takes an action's ranges on one parameter over the range's time range off
/// the action, with their key frames; undo adds `range` back. Unlike
/// `AddParameterRangeCmd` it writes no values back.
class RemoveParameterRangeCmd : public OrvCommandImpl {
 public:
  /// Throws `OrvException` on a null action or range.
  static boost::shared_ptr<RemoveParameterRangeCmd> create(
      boost::shared_ptr<const Action> action, boost::shared_ptr<const ParameterRange> range);

  void execute(KelMediaLib::CommandHandler* handler) override;
  void unexecute(KelMediaLib::CommandHandler* handler) override;
  void reexecute(KelMediaLib::CommandHandler* handler) override;

  boost::shared_ptr<const Action> action() const { return action_; }
  boost::shared_ptr<const ParameterRange> range() const { return range_; }

 private:
  RemoveParameterRangeCmd(boost::shared_ptr<const Action> action,
                          boost::shared_ptr<const ParameterRange> range);

  boost::shared_ptr<const Action> action_;
  boost::shared_ptr<const ParameterRange> range_;
};

}  // namespace OrvMediaLib
