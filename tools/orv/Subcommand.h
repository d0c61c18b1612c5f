#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace orv {

/// Exit codes of every subcommand.
enum ExitCode {
  kExitOk = 0,
  /// The work failed: a file that won't load, a file that can't be written.
  kExitFailure = 1,
  /// The command line was wrong; the usage was printed.
  kExitUsage = 2,
};

/// One subcommand of the `orv` tool, in the manner of git's: `orv <name> args`.
class Subcommand {
 public:
  virtual ~Subcommand() = default;
  /// The word that selects it, e.g. "info".
  virtual std::string name() const = 0;
  /// One line for the list of commands.
  virtual std::string summary() const = 0;
  /// The synopsis and the options, printed by `orv help <name>` and on a
  /// usage error.
  virtual std::string usage() const = 0;
  /// Runs with the arguments behind the name; returns an `ExitCode`.
  virtual int run(const std::vector<std::string>& args, std::ostream& out, std::ostream& err) = 0;
};

}  // namespace orv
