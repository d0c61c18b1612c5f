#include "commands/AddRightTransitionCmd.h"

#include "media/commands/AddRightEdgeModCmd.h"
#include "media/commands/MoveRightEdgeModCmd.h"
#include "media/commands/RemoveRightEdgeModCmd.h"
#include "media/edges/EdgeModification.h"
#include "media/media/Media.h"

#include <ostream>

namespace OrvMediaLib {

namespace {
const char* const kName = "AddRightTransitionCmd";
}  // namespace

AddRightTransitionCmd::AddRightTransitionCmd(boost::shared_ptr<const KelMediaLib::Media> media,
                                             const TransitionDescription& description,
                                             long long length)
    : AddTransitionCmd(kName, media, description, length) {}

boost::shared_ptr<AddRightTransitionCmd> AddRightTransitionCmd::create(
    boost::shared_ptr<const KelMediaLib::Media> media, const TransitionDescription& description,
    long long length) {
  return boost::shared_ptr<AddRightTransitionCmd>(
      new AddRightTransitionCmd(media, description, length));
}

AddRightTransitionCmd* AddRightTransitionCmd::clone() const {
  return new AddRightTransitionCmd(*this);
}

std::string AddRightTransitionCmd::description() const {
  return kName;
}

void AddRightTransitionCmd::xmlName(Options& options) const {
  options.out << kName;
}

void AddRightTransitionCmd::setTransitionLength(boost::shared_ptr<const KelMediaLib::Media> media,
                                                long long length) {
  execute(KelMediaLib::MoveRightEdgeModCmd::create(media, length));
}

void AddRightTransitionCmd::addEdgeMod(boost::shared_ptr<const KelMediaLib::Media> media,
                                       const KelMediaLib::EdgeModification& modification) {
  execute(KelMediaLib::AddRightEdgeModCmd::create(media, modification));
}

bool AddRightTransitionCmd::removePreviousEdgeMod(
    boost::shared_ptr<const KelMediaLib::Media> media) {
  const auto modifications = media->rightEdgeModifications();
  for (const auto& modification : modifications) {
    execute(KelMediaLib::RemoveRightEdgeModCmd::create(media, modification->parameter()));
  }
  return !modifications.empty();
}

bool AddRightTransitionCmd::shouldSetTransitionLength(
    boost::shared_ptr<const KelMediaLib::Media> media) {
  return media->rightEdgeLength() <= 0;
}

KelMediaLib::EdgeModification AddRightTransitionCmd::edgeModForParameter(
    boost::shared_ptr<const KelMediaLib::Parameter<double>> parameter,
    const ModifierDescription& modifier) {
  return KelMediaLib::EdgeModification(parameter, modifier.rightFunction());
}

}  // namespace OrvMediaLib
