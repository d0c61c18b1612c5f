#pragma once

#include "commands/OrvCommandImpl.h"

#include <boost/shared_ptr.hpp>

namespace KelMediaLib {
class Command;
class MultiCommand;
}  // namespace KelMediaLib

namespace OrvMediaLib {

/// A group of commands that undo and redo as one entry.
///
/// The first `execute` calls `executeCommands` once; there the subclass reads
/// the model, decides what to do, and runs each member at once through
/// `orvExecute` or `execute(command)`, which also record it. Undo replays the
/// recorded members backward, redo forward; neither enters `executeCommands`
/// again, so later members may rely on the effect of earlier ones. The group
/// logic (and its rollback of a failing first run) is the media model's
/// `MultiCommand`, reached through a private relay that the group owns.
class OrvMultiCommand : public OrvCommandImpl {
 public:
  OrvMultiCommand();
  /// A copy is a group that hasn't run: a fresh relay, no members.
  OrvMultiCommand(const OrvMultiCommand& other);
  OrvMultiCommand& operator=(const OrvMultiCommand&) = delete;
  ~OrvMultiCommand() override;

  void execute(KelMediaLib::CommandHandler* handler) override;
  void unexecute(KelMediaLib::CommandHandler* handler) override;
  void reexecute(KelMediaLib::CommandHandler* handler) override;

  /// The group's logic, run once, on the first `execute`, with the handler
  /// that `execute` was given.
  virtual void executeCommands(KelMediaLib::CommandHandler const* handler) = 0;

  /// Runs `command` now as a member: it gets this group's handler of action
  /// edits, so a handler set on the outermost group reaches the whole tree.
  /// Only valid while `executeCommands` runs.
  void orvExecute(boost::shared_ptr<OrvCommand> command);
  /// Runs a media model command now as a member, with the handler of the
  /// group's first run. Only valid while `executeCommands` runs. Returns what
  /// the command's `execute` returned; one that returns false isn't recorded.
  bool execute(boost::shared_ptr<KelMediaLib::Command> command);
  /// How many members are recorded.
  unsigned int numUndoCommands() const;

 private:
  boost::shared_ptr<KelMediaLib::MultiCommand> relay_;
};

}  // namespace OrvMediaLib
