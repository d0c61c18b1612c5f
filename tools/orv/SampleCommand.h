#pragma once

#include "Subcommand.h"

namespace orv {

/// `orv sample DIR`: writes the library's sample screen recording, the
/// bundle "DIR/sample.vdpak", and lists what it holds.
class SampleCommand : public Subcommand {
 public:
  std::string name() const override { return "sample"; }
  std::string summary() const override { return "Write a sample screen recording bundle"; }
  std::string usage() const override;
  int run(const std::vector<std::string>& args, std::ostream& out, std::ostream& err) override;
};

}  // namespace orv
