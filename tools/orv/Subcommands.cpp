#include "Dispatcher.h"
#include "InfoCommand.h"
#include "SampleCommand.h"
#include "ZoomCommand.h"

namespace orv {

// The table of the tool's subcommands, in the order `orv --help` lists them.
Dispatcher makeDispatcher() {
  Dispatcher dispatcher;
  dispatcher.add(std::make_unique<SampleCommand>());
  dispatcher.add(std::make_unique<ZoomCommand>());
  dispatcher.add(std::make_unique<InfoCommand>());
  return dispatcher;
}

}  // namespace orv
