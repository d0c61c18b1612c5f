#include "media/project/CommandHistory.h"

#include "core/KelMediaLibException.h"
#include "core/MultiCommand.h"

#include <atomic>
#include <string>

namespace KelMediaLib {

namespace {

std::atomic<unsigned long long> nextSerial(1);

// Two or more entries of the history made one. It is born executed: its
// members ran as entries of their own before they were combined.
class CombinedCommand : public MultiCommand {
 public:
  CombinedCommand() = default;

  std::string description() const override { return "CombinedCommand"; }
  // A combination can't be replayed from scratch: its members' first runs
  // are over.
  Command* clone() const override { return nullptr; }
  void executeCommands(CommandHandler const*) override {
    throw KelMediaLibException(
        "a combined history entry can only be undone and redone, not executed afresh");
  }
};

}  // namespace

CommandHistory::CommandHistory() : ident_(nextSerial++), position_(0) {}

boost::shared_ptr<Command> CommandHistory::commandAt(unsigned int index) const {
  if (index >= entries_.size()) {
    throw KelMediaLibException("command history: no entry " + std::to_string(index) + " among " +
                               std::to_string(entries_.size()));
  }
  return entries_[index].command;
}

void CommandHistory::record(boost::shared_ptr<Command> command) {
  entries_.resize(position_);
  entries_.push_back(Entry{command, nextSerial++});
  ++position_;
}

void CommandHistory::clear() {
  entries_.clear();
  position_ = 0;
  ident_ = nextSerial++;
}

boost::shared_ptr<Command> CommandHistory::nextUndo() const {
  if (!canUndo()) {
    throw KelMediaLibException("command history: nothing to undo");
  }
  return entries_[position_ - 1].command;
}

void CommandHistory::stepBack() {
  nextUndo();
  --position_;
}

boost::shared_ptr<Command> CommandHistory::nextRedo() const {
  if (!canRedo()) {
    throw KelMediaLibException("command history: nothing to redo");
  }
  return entries_[position_].command;
}

void CommandHistory::stepForward() {
  nextRedo();
  ++position_;
}

void CommandHistory::combineLast() {
  if (position_ < 2) {
    throw KelMediaLibException("command history: combining needs two done entries, there are " +
                               std::to_string(position_));
  }
  Entry& first = entries_[position_ - 2];
  const Entry& second = entries_[position_ - 1];
  boost::shared_ptr<Command> group = boost::dynamic_pointer_cast<CombinedCommand>(first.command);
  if (!group) {
    group.reset(new CombinedCommand);
    group->combine(first.command);
  }
  group->combine(second.command);
  first.command = group;
  // The combined entry ends where the second one ended, so a token taken
  // after both still names the same state.
  first.serial = second.serial;
  entries_.erase(entries_.begin() + (position_ - 1));
  --position_;
}

CommandHistoryState CommandHistory::state() const {
  return CommandHistoryState(ident_, position_ == 0 ? 0 : entries_[position_ - 1].serial);
}

unsigned int CommandHistory::positionOf(const CommandHistoryState& state) const {
  if (state.history_ != ident_) {
    throw KelMediaLibException("command history: the state token belongs to another history");
  }
  if (state.entry_ == 0) {
    return 0;
  }
  for (std::size_t i = 0; i < entries_.size(); ++i) {
    if (entries_[i].serial == state.entry_) {
      return static_cast<unsigned int>(i + 1);
    }
  }
  throw KelMediaLibException(
      "command history: the state can't be reached any more, the history has branched since");
}

}  // namespace KelMediaLib
