#pragma once

#include <boost/shared_ptr.hpp>

#include <list>

namespace KelMediaLib {
class CommandHandler;
}  // namespace KelMediaLib

namespace OrvMediaLib {

class OrvCommand;

/// A stand-alone history of `OrvCommand`s, for callers that want one outside
/// a project: an undo list and a redo list, newest last. Commands run with
/// the stored `CommandHandler` (not owned, null until set); their handler of
/// action edits must have been set by the caller.
class OrvCommandHistory {
 public:
  OrvCommandHistory();

  void setCommandHandler(KelMediaLib::CommandHandler* handler);
  /// Executes `command` (not null); once it has returned, records it as the
  /// newest undoable command and forgets everything undone. A command that
  /// throws changes neither list.
  void execute(boost::shared_ptr<OrvCommand> command);
  /// Undoes the newest undoable command; throws `OrvException` "no commands
  /// to undo" if there is none. A command that throws while undoing is
  /// dropped from the history.
  void undo();
  /// Redoes the newest undone command; throws `OrvException` "no commands to
  /// redo" if there is none. A command that throws while redoing is dropped.
  void redo();
  /// Undoes until nothing is left to undo (nothing at all on an empty list).
  void undoAll();
  /// Redoes until nothing is left to redo (nothing at all on an empty list).
  void redoAll();

 private:
  std::list<boost::shared_ptr<OrvCommand>> undoList_;
  std::list<boost::shared_ptr<OrvCommand>> redoList_;
  KelMediaLib::CommandHandler* handler_;
};

}  // namespace OrvMediaLib
