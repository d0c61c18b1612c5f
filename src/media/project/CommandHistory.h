#pragma once

#include "media/project/CommandHistoryState.h"

#include <boost/shared_ptr.hpp>

#include <vector>

namespace KelMediaLib {

class Command;

/// The entries of a project's history and the position between the done and
/// the undone ones. It only keeps the books: the project runs the commands,
/// under its lock, and moves the position when a run succeeded.
///
/// Entries 0 .. position()-1 are done (the last of them is undone first);
/// entries position() .. numCommands()-1 are undone and wait for redo.
class CommandHistory {
 public:
  CommandHistory();
  CommandHistory(const CommandHistory&) = delete;
  CommandHistory& operator=(const CommandHistory&) = delete;

  unsigned int numCommands() const { return static_cast<unsigned int>(entries_.size()); }
  /// The number of done entries.
  unsigned int position() const { return position_; }
  bool canUndo() const { return position_ > 0; }
  bool canRedo() const { return position_ < entries_.size(); }
  /// The entry at `index` (0 is the oldest); throws out of range.
  boost::shared_ptr<Command> commandAt(unsigned int index) const;

  /// Appends an executed command as a done entry; the undone entries are
  /// dropped, since the history branches here.
  void record(boost::shared_ptr<Command> command);
  /// The entry that `undo` runs, then `stepBack` once it ran; throw when
  /// there is nothing to undo.
  boost::shared_ptr<Command> nextUndo() const;
  void stepBack();
  /// The entry that `redo` runs, then `stepForward` once it ran.
  boost::shared_ptr<Command> nextRedo() const;
  void stepForward();

  /// Makes the last two done entries one, which undoes and redoes both.
  /// Throws unless two entries are done.
  void combineLast();

  /// Forgets every entry. Tokens taken before match nothing any more; the
  /// token taken next names the new start.
  void clear();

  /// The token of the current position.
  CommandHistoryState state() const;
  /// The position that `state` names; throws `KelMediaLibException` when the
  /// token belongs to another history or its position can't be reached any
  /// more because the history branched.
  unsigned int positionOf(const CommandHistoryState& state) const;

 private:
  struct Entry {
    boost::shared_ptr<Command> command;
    unsigned long long serial;
  };

  unsigned long long ident_;
  std::vector<Entry> entries_;
  unsigned int position_;
};

}  // namespace KelMediaLib
