#pragma once

#include "Subcommand.h"

namespace orv {

/// `orv zoom BUNDLE -o PROJECT [--zoom 2.0] [--svg FILE]`: automatic zoom
/// on a recording bundle, written as a project file, with a summary of the
/// zoom actions and of the checks (undo, redo, the file read back) and, on
/// request, a picture of them.
class ZoomCommand : public Subcommand {
 public:
  std::string name() const override { return "zoom"; }
  std::string summary() const override { return "Apply automatic zoom to a recording bundle"; }
  std::string usage() const override;
  int run(const std::vector<std::string>& args, std::ostream& out, std::ostream& err) override;
};

}  // namespace orv
