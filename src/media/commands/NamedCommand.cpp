#include "media/commands/NamedCommand.h"

#include <ostream>

namespace KelMediaLib {

NamedCommand::NamedCommand(const char* name) : name_(name) {}

std::string NamedCommand::description() const {
  return name_;
}

void NamedCommand::xmlName(Options& options) const {
  options.out << name_;
}

}  // namespace KelMediaLib
