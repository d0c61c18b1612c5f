#include "commands/AddTransitionCmd.h"

#include "actions/OrvException.h"
#include "media/edges/EdgeModification.h"
#include "media/media/Media.h"

#include <string>

namespace OrvMediaLib {

AddTransitionCmd::AddTransitionCmd(const char* name,
                                   boost::shared_ptr<const KelMediaLib::Media> media,
                                   const TransitionDescription& description, long long length)
    : media_(media), description_(description), length_(length) {
  if (!media_) {
    throw OrvException(std::string(name) + ": no media given");
  }
  if (length_ < 0) {
    throw OrvException(std::string(name) + ": a transition can't be " + std::to_string(length_) +
                       " long");
  }
}

AddTransitionCmd::AddTransitionCmd(const AddTransitionCmd& other)
    : KelMediaLib::MultiCommand(other),
      media_(other.media_),
      description_(other.description_),
      length_(other.length_) {}

void AddTransitionCmd::executeCommands(KelMediaLib::CommandHandler const*) {
  addModifiers();
  if (shouldSetTransitionLength(media_)) {
    setTransitionLength(media_, length_);
  }
}

void AddTransitionCmd::addModifiers() {
  for (const ModifierDescription& modifier : description_) {
    addEdgeMod(media_, edgeModForParameter(modifier.parameterOf(*media_), modifier));
  }
}

}  // namespace OrvMediaLib
