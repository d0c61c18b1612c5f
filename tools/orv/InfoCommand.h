#pragma once

#include "Subcommand.h"

#include <cstdint>

namespace orv {

/// `orv info [--progress|--no-progress] FILE`: loads a project file and
/// prints a summary of it (edit rate, sources and whether their files were
/// found, tracks, media with their ranges, actions per bin, key frames per
/// animated parameter), or the error with its position.
class InfoCommand : public Subcommand {
 public:
  /// Files at least this large show a progress bar when standard error is a
  /// terminal.
  static const std::uint64_t kProgressThreshold = 4u << 20;

  std::string name() const override { return "info"; }
  std::string summary() const override { return "Load a project file and summarise it"; }
  std::string usage() const override;
  int run(const std::vector<std::string>& args, std::ostream& out, std::ostream& err) override;
};

}  // namespace orv
