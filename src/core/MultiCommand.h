#pragma once

#include "core/Command.h"

#include <boost/shared_ptr.hpp>

#include <vector>

namespace KelMediaLib {

/// A group of commands that undo and redo as one.
///
/// The first `execute` calls `executeCommands` once; there the subclass
/// decides what to do and runs each member through `execute(command)`, which
/// runs it at once and records it. Undo replays the recorded members backward,
/// redo forward; neither enters `executeCommands` again.
///
/// Failure: when a member throws during the first run, the members already run
/// are undone in reverse order and the exception goes on; nothing stays
/// recorded. When a member throws during undo or redo, the members already
/// undone (redone) are redone (undone) again, so the model stands where it
/// stood before the call, and the exception goes on.
class MultiCommand : public Command {
 public:
  MultiCommand();
  /// A copy has recorded nothing: it is a group that hasn't run yet.
  MultiCommand(const MultiCommand& other);
  MultiCommand& operator=(const MultiCommand&) = delete;
  ~MultiCommand() override;

  bool execute(CommandHandler* handler) override;
  bool unexecute(CommandHandler* handler) override;
  bool reexecute(CommandHandler* handler) override;
  /// Appends `other`, already executed, to the recorded members.
  void combine(boost::shared_ptr<Command> other) override;

  /// The group's logic, run once, on the first `execute`.
  virtual void executeCommands(CommandHandler const* handler) = 0;

  /// Runs `command` now with the group's handler and records it. Only valid
  /// while `executeCommands` runs. Returns what the member's `execute` returned;
  /// a member that returns false isn't recorded.
  bool execute(boost::shared_ptr<Command> command);

  unsigned int numUndoCommands() const;

  void xmlName(Options& options) const override;
  void xmlBody(Options& options, int depth) const override;

 protected:
  bool xmlHasBody() const override { return true; }

 private:
  std::vector<boost::shared_ptr<Command>> commands_;
  // The handler of the first run, while `executeCommands` runs (it may be null).
  CommandHandler* handler_;
  bool running_;
  bool executed_;
};

}  // namespace KelMediaLib
