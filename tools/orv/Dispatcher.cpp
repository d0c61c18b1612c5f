#include "Dispatcher.h"

#include <iomanip>
#include <ostream>

namespace orv {

void Dispatcher::add(std::unique_ptr<Subcommand> subcommand) {
  subcommands_.push_back(std::move(subcommand));
}

int Dispatcher::run(const std::vector<std::string>& args, std::ostream& out,
                    std::ostream& err) const {
  if (args.empty()) {
    printUsage(err);
    return kExitUsage;
  }
  const std::string& first = args.front();
  if (first == "help" || first == "--help" || first == "-h") {
    if (args.size() == 1) {
      printUsage(out);
      return kExitOk;
    }
    if (const Subcommand* subcommand = find(args[1])) {
      out << subcommand->usage();
      return kExitOk;
    }
    err << "orv: no help for '" << args[1] << "': not an orv command.\n";
    return kExitUsage;
  }
  const Subcommand* subcommand = find(first);
  if (!subcommand) {
    err << "orv: '" << first << "' is not an orv command. See 'orv --help'.\n";
    return kExitUsage;
  }
  // Subcommands are stateless between runs; the table owns them.
  return const_cast<Subcommand*>(subcommand)
      ->run(std::vector<std::string>(args.begin() + 1, args.end()), out, err);
}

const Subcommand* Dispatcher::find(const std::string& name) const {
  for (const auto& subcommand : subcommands_) {
    if (subcommand->name() == name) {
      return subcommand.get();
    }
  }
  return nullptr;
}

void Dispatcher::printUsage(std::ostream& out) const {
  out << "usage: orv <command> [<args>]\n\nCommands:\n";
  for (const auto& subcommand : subcommands_) {
    out << "  " << std::left << std::setw(10) << subcommand->name() << subcommand->summary()
        << '\n';
  }
  out << "\nSee 'orv help <command>' for the usage of one command.\n";
}

}  // namespace orv
