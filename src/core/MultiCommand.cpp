#include "core/MultiCommand.h"

#include "core/KelMediaLibException.h"
#include "core/XMLText.h"

#include <exception>
#include <ostream>

namespace KelMediaLib {

namespace {

// Marks the first run as in progress, however it ends.
class RunningScope {
 public:
  explicit RunningScope(bool& running) : running_(running) { running_ = true; }
  ~RunningScope() { running_ = false; }
  RunningScope(const RunningScope&) = delete;
  RunningScope& operator=(const RunningScope&) = delete;

 private:
  bool& running_;
};

}  // namespace

MultiCommand::MultiCommand() : handler_(nullptr), running_(false), executed_(false) {}

MultiCommand::MultiCommand(const MultiCommand& other)
    : Command(other), handler_(nullptr), running_(false), executed_(false) {}

MultiCommand::~MultiCommand() = default;

bool MultiCommand::execute(CommandHandler* handler) {
  if (executed_ || running_) {
    throw KelMediaLibException(
        "a group of commands runs its logic once; redo it with reexecute");
  }
  try {
    RunningScope scope(running_);
    handler_ = handler;
    executeCommands(handler);
  } catch (...) {
    // Roll back what the failed run did; a failure while rolling back can't
    // be reported better than the first one.
    for (auto it = commands_.rbegin(); it != commands_.rend(); ++it) {
      try {
        (*it)->unexecute(handler);
      } catch (...) {
      }
    }
    commands_.clear();
    throw;
  }
  executed_ = true;
  return true;
}

bool MultiCommand::unexecute(CommandHandler* handler) {
  for (std::size_t i = commands_.size(); i-- > 0;) {
    try {
      commands_[i]->unexecute(handler);
    } catch (...) {
      for (std::size_t j = i + 1; j < commands_.size(); ++j) {
        try {
          commands_[j]->reexecute(handler);
        } catch (...) {
        }
      }
      throw;
    }
  }
  return true;
}

bool MultiCommand::reexecute(CommandHandler* handler) {
  for (std::size_t i = 0; i < commands_.size(); ++i) {
    try {
      commands_[i]->reexecute(handler);
    } catch (...) {
      for (std::size_t j = i; j-- > 0;) {
        try {
          commands_[j]->unexecute(handler);
        } catch (...) {
        }
      }
      throw;
    }
  }
  return true;
}

void MultiCommand::combine(boost::shared_ptr<Command> other) {
  if (!other) {
    throw KelMediaLibException("MultiCommand::combine: no command given");
  }
  commands_.push_back(other);
  executed_ = true;
}

bool MultiCommand::execute(boost::shared_ptr<Command> command) {
  if (!running_) {
    throw KelMediaLibException(
        "MultiCommand::execute(command) is only valid while the group's executeCommands runs");
  }
  if (!command) {
    throw KelMediaLibException("MultiCommand::execute(command): no command given");
  }
  const bool done = command->execute(handler_);
  if (done) {
    commands_.push_back(command);
  }
  return done;
}

unsigned int MultiCommand::numUndoCommands() const {
  return static_cast<unsigned int>(commands_.size());
}

void MultiCommand::xmlName(Options& options) const { writeLiteral(options.out, "MultiCommand"); }

void MultiCommand::xmlBody(Options& options, int depth) const {
  for (const auto& command : commands_) {
    command->toXML(options, depth, std::string());
  }
}

}  // namespace KelMediaLib
