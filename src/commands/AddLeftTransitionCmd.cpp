#include "commands/AddLeftTransitionCmd.h"

#include "media/commands/AddLeftEdgeModCmd.h"
#include "media/commands/MoveLeftEdgeModCmd.h"
#include "media/commands/RemoveLeftEdgeModCmd.h"
#include "media/edges/EdgeModification.h"
#include "media/media/Media.h"

#include <ostream>

namespace OrvMediaLib {

namespace {
const char* const kName = "AddLeftTransitionCmd";
}  // namespace

AddLeftTransitionCmd::AddLeftTransitionCmd(boost::shared_ptr<const KelMediaLib::Media> media,
                                           const TransitionDescription& description,
                                           long long length)
    : AddTransitionCmd(kName, media, description, length) {}

boost::shared_ptr<AddLeftTransitionCmd> AddLeftTransitionCmd::create(
    boost::shared_ptr<const KelMediaLib::Media> media, const TransitionDescription& description,
    long long length) {
  return boost::shared_ptr<AddLeftTransitionCmd>(
      new AddLeftTransitionCmd(media, description, length));
}

AddLeftTransitionCmd* AddLeftTransitionCmd::clone() const {
  return new AddLeftTransitionCmd(*this);
}

std::string AddLeftTransitionCmd::description() const {
  return kName;
}

void AddLeftTransitionCmd::xmlName(Options& options) const {
  options.out << kName;
}

void AddLeftTransitionCmd::setTransitionLength(boost::shared_ptr<const KelMediaLib::Media> media,
                                               long long length) {
  execute(KelMediaLib::MoveLeftEdgeModCmd::create(media, length));
}

void AddLeftTransitionCmd::addEdgeMod(boost::shared_ptr<const KelMediaLib::Media> media,
                                      const KelMediaLib::EdgeModification& modification) {
  execute(KelMediaLib::AddLeftEdgeModCmd::create(media, modification));
}

bool AddLeftTransitionCmd::removePreviousEdgeMod(
    boost::shared_ptr<const KelMediaLib::Media> media) {
  const auto modifications = media->leftEdgeModifications();
  for (const auto& modification : modifications) {
    execute(KelMediaLib::RemoveLeftEdgeModCmd::create(media, modification->parameter()));
  }
  return !modifications.empty();
}

bool AddLeftTransitionCmd::shouldSetTransitionLength(
    boost::shared_ptr<const KelMediaLib::Media> media) {
  return media->leftEdgeLength() <= 0;
}

KelMediaLib::EdgeModification AddLeftTransitionCmd::edgeModForParameter(
    boost::shared_ptr<const KelMediaLib::Parameter<double>> parameter,
    const ModifierDescription& modifier) {
  return KelMediaLib::EdgeModification(parameter, modifier.leftFunction());
}

}  // namespace OrvMediaLib
