#pragma once

namespace KelMediaLib {
class CommandHandler;
}  // namespace KelMediaLib

namespace OrvMediaLib {

class OrvCommandHandler;

/// An undoable edit of the action model. It edits actions through its
/// `OrvCommandHandler` (the project) and the timeline through the
/// `CommandHandler` it is given. An `OrvCommandExecutor` makes it an entry of
/// the media model's history.
///
/// Contract: `execute` once; then `unexecute` and `reexecute` in turn,
/// beginning with `unexecute`. `execute` captures what undo needs,
/// `unexecute` restores it without making anything new, and `reexecute`
/// repeats the edit with the objects that `execute` made. Failures are
/// exceptions; nothing is caught on the way.
class OrvCommand {
 public:
  virtual ~OrvCommand();
  /// The handler of action edits; not owned. Must be set before `execute`.
  virtual void setOrvCommandHandler(OrvCommandHandler* handler) = 0;
  virtual void execute(KelMediaLib::CommandHandler* handler) = 0;
  virtual void unexecute(KelMediaLib::CommandHandler* handler) = 0;
  virtual void reexecute(KelMediaLib::CommandHandler* handler) = 0;
  virtual OrvCommandHandler* orvCommandHandler() const = 0;
};

}  // namespace OrvMediaLib
