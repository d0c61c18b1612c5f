#pragma once

#include "core/ProjectEditRate.h"
#include "core/Subject.h"
#include "core/ThreadSafe.h"
#include "core/XMLIdentified.h"
#include "core/XMLable.h"
#include "media/project/CommandHistoryState.h"

#include <boost/shared_ptr.hpp>

#include <string>

namespace KelMediaLib {

class ClipBoard;
class Command;
class CommandHistory;
class CommandObserver;
class Source;
class SourceBin;
class SourceBinSentry;
class Timeline;

/// A project of the media model: the timeline, the source bin and the
/// command history through which every edit passes. It owns its lock (see
/// `ThreadSafe`); its observers are told after each executed, undone or
/// redone command.
///
/// Written as `<Project id editRate version="1.0">` with the source bin and
/// the timeline.
class Project : public XMLable,
                public ThreadSafe,
                public ProjectEditRate,
                public Subject,
                public virtual XMLIdentified {
 public:
  /// A new, empty project (an `InternalProject`) at that edit rate; throws
  /// `KelMediaLibException` on a rate of zero.
  static boost::shared_ptr<Project> create(EditRate editRate);

  ~Project() override;

  /// Runs the command under the project's write lock and records it as one
  /// history entry if it returns true; returns what it returned. A command
  /// that throws isn't recorded and the exception goes on.
  virtual bool execute(boost::shared_ptr<Command> command) = 0;
  /// Undoes the last done entry; throws `KelMediaLibException` if there is none.
  virtual void undo() = 0;
  /// Redoes the first undone entry; throws `KelMediaLibException` if there is none.
  virtual void redo() = 0;
  /// Makes the last two done entries one entry.
  virtual void combineLastCommands() = 0;
  /// Makes the next command that is executed and recorded join the last
  /// done entry. Forgotten on undo and redo.
  virtual void combineNextCommand() = 0;
  /// A token for the current position of the history.
  virtual CommandHistoryState commandState() const = 0;
  /// Undoes or redoes entries until the history stands at the token's
  /// position; throws `KelMediaLibException`, changing nothing, when that
  /// position can't be reached any more.
  virtual void restoreCommandState(const CommandHistoryState& state) = 0;
  /// The observer isn't owned; attaching it twice changes nothing.
  virtual void attachCommandObserver(CommandObserver* observer) = 0;
  virtual void detachCommandObserver(CommandObserver* observer) = 0;

  virtual boost::shared_ptr<const Timeline> timeline() const = 0;
  virtual boost::shared_ptr<const SourceBin> sourceBin() const = 0;
  virtual const CommandHistory& commandHistory() const = 0;
  virtual boost::shared_ptr<ClipBoard> clipBoard() = 0;
  /// Relinks a source of the bin to a moved file: executes a
  /// `ChangeSourcesFileCmd`, one undoable history entry. Throws
  /// `KelMediaLibException` naming the path, changing nothing, when nothing
  /// is there, and on a source that isn't in the bin.
  virtual void changeSourcesFile(boost::shared_ptr<const Source> source,
                                 const std::string& path) = 0;
  /// Keeps the sentry and tells it of every source loaded into or unloaded
  /// from the bin from now on (see `SourceBinSentry`).
  virtual void addSourceBinSentry(boost::shared_ptr<SourceBinSentry> sentry) = 0;
};

}  // namespace KelMediaLib
