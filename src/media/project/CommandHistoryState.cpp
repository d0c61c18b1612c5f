#include "media/project/CommandHistoryState.h"

namespace KelMediaLib {

CommandHistoryState::CommandHistoryState() : history_(0), entry_(0) {}

CommandHistoryState::CommandHistoryState(unsigned long long history, unsigned long long entry)
    : history_(history), entry_(entry) {}

bool CommandHistoryState::operator==(const CommandHistoryState& other) const {
  return history_ == other.history_ && entry_ == other.entry_;
}

}  // namespace KelMediaLib
