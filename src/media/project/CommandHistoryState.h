#pragma once

namespace KelMediaLib {

class CommandHistory;

/// A token for one position of a command history, taken with
/// `InternalProject::commandState` (for instance when the project is saved)
/// and given back to `restoreCommandState` to undo or redo to that position.
/// It names the position by the entry just before it, so a token stays valid
/// while that entry stays where it was, and goes stale once the history has
/// branched away from it (a new command executed after an undo past it).
class CommandHistoryState {
 public:
  /// The token of an empty history's start; it matches no history.
  CommandHistoryState();

  bool operator==(const CommandHistoryState& other) const;
  bool operator!=(const CommandHistoryState& other) const { return !(*this == other); }

 private:
  friend class CommandHistory;

  CommandHistoryState(unsigned long long history, unsigned long long entry);

  // The history's own number, so that a token of another project matches nothing.
  unsigned long long history_;
  // Serial of the entry just before the position; 0 at the start. Serials
  // aren't reused, and combining keeps the later one, so a state survives
  // the renumbering of positions.
  unsigned long long entry_;
};

}  // namespace KelMediaLib
