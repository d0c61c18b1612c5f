#pragma once

#include "Subcommand.h"

#include <iosfwd>
#include <memory>
#include <string>
#include <vector>

namespace orv {

/// The table of subcommands and the choice among them by the first argument.
/// `orv`, `orv help` and `orv --help` list the commands; `orv help <name>`
/// prints one command's usage.
class Dispatcher {
 public:
  void add(std::unique_ptr<Subcommand> subcommand);
  /// `args` are the arguments behind the program's name.
  int run(const std::vector<std::string>& args, std::ostream& out, std::ostream& err) const;

 private:
  const Subcommand* find(const std::string& name) const;
  void printUsage(std::ostream& out) const;

  std::vector<std::unique_ptr<Subcommand>> subcommands_;
};

/// The dispatcher with every subcommand of the tool.
Dispatcher makeDispatcher();

}  // namespace orv
