#pragma once

#include "commands/OrvCommandImpl.h"

#include <boost/shared_ptr.hpp>

namespace KelMediaLib {
class Command;
}  // namespace KelMediaLib

namespace OrvMediaLib {

/// A command whose doing is the undoing of another, already executed one:
/// `execute` unexecutes the wrapped command, `unexecute` reexecutes it and
/// `reexecute` unexecutes it again, each with the handler given. The wrapped
/// command keeps the handler of action edits it ran with; the one set on
/// this command stays here.
class UndoCmd : public OrvCommandImpl {
 public:
  /// Inverts `command`, which must not be null.
  static boost::shared_ptr<UndoCmd> create(boost::shared_ptr<KelMediaLib::Command> command);
  /// Inverts `command` (not null) through a new `OrvCommandExecutor`.
  static boost::shared_ptr<UndoCmd> orvCreate(boost::shared_ptr<OrvCommand> command);
  ~UndoCmd() override;

  void execute(KelMediaLib::CommandHandler* handler) override;
  void unexecute(KelMediaLib::CommandHandler* handler) override;
  void reexecute(KelMediaLib::CommandHandler* handler) override;

 protected:
  explicit UndoCmd(boost::shared_ptr<KelMediaLib::Command> command);

 private:
  boost::shared_ptr<KelMediaLib::Command> command_;
};

}  // namespace OrvMediaLib
