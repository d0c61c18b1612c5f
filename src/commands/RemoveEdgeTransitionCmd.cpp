#include "commands/RemoveEdgeTransitionCmd.h"

#include "actions/OrvException.h"
#include "commands/EdgeModRemoveCmdGenerator.h"
#include "media/media/Media.h"

#include <string>

namespace OrvMediaLib {

RemoveEdgeTransitionCmd::RemoveEdgeTransitionCmd(
    const char* name, boost::shared_ptr<const KelMediaLib::Media> media,
    boost::shared_ptr<const EdgeModRemoveCmdGenerator> generator)
    : media_(media), generator_(generator) {
  if (!media_) {
    throw OrvException(std::string(name) + ": no media given");
  }
  if (!generator_) {
    throw OrvException(std::string(name) + ": no command generator given");
  }
}

void RemoveEdgeTransitionCmd::executeCommands(KelMediaLib::CommandHandler const*) {
  removeModifiers(*parameters(media_));
}

void RemoveEdgeTransitionCmd::removeModifiers(const ParameterList& parameters) {
  for (const auto& parameter : parameters) {
    // A parameter whose modifications an earlier entry took already runs a
    // command that finds nothing, which the group doesn't record.
    execute(generator_->removeEdgeModCmd(media_, parameter));
  }
  execute(generator_->trimEdgeModCmd(media_));
}

}  // namespace OrvMediaLib
