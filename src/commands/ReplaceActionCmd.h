#pragma once

#include "commands/OrvMultiCommand.h"

#include <boost/shared_ptr.hpp>

namespace KelMediaLib {
class CommandHandler;
}

namespace OrvMediaLib {

class Action;

/// Gives the target action the source action's parameter ranges in place of
/// its own; the target stays in its bin. Its own ranges go first, each by a
/// `RemoveParameterRangeCmd`, then each range of the source comes, by an
/// `AddParameterRangeCmd`: the range objects are shared with the source, not
/// copied. One undo gives the target its old ranges back.
class ReplaceActionCmd : public OrvMultiCommand {
 public:
  /// Throws `OrvException` on a null action.
  static boost::shared_ptr<ReplaceActionCmd> create(boost::shared_ptr<const Action> source,
                                                    boost::shared_ptr<const Action> target);

  void executeCommands(KelMediaLib::CommandHandler const* handler) override;

  boost::shared_ptr<const Action> source() const { return source_; }
  boost::shared_ptr<const Action> target() const { return target_; }

 private:
  ReplaceActionCmd(boost::shared_ptr<const Action> source, boost::shared_ptr<const Action> target);

  void removeOldRanges();
  void addNewRanges();

  boost::shared_ptr<const Action> source_;
  boost::shared_ptr<const Action> target_;
};

}  // namespace OrvMediaLib
