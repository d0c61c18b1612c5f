#pragma once

#include "core/Command.h"

#include <string>

namespace KelMediaLib {

/// Base of the timeline commands: a command known by its class name, which
/// is its `description` and its XML element name (`<AddMediaCmd/>` in a
/// trace of the history). A copy made by `clone` is a fresh command with the
/// same arguments that hasn't run.
class NamedCommand : public Command {
 public:
  std::string description() const override;
  void xmlName(Options& options) const override;

 protected:
  explicit NamedCommand(const char* name);

  bool xmlHasAttributes() const override { return false; }
  bool xmlHasBody() const override { return false; }

 private:
  const char* name_;
};

}  // namespace KelMediaLib
