#include "commands/EdgeModRemoveCmdGenerator.h"

#include "actions/OrvException.h"
#include "media/commands/MoveLeftEdgeModCmd.h"
#include "media/commands/MoveRightEdgeModCmd.h"
#include "media/commands/RemoveLeftEdgeModCmd.h"
#include "media/commands/RemoveRightEdgeModCmd.h"
#include "media/media/Media.h"

#include <string>

namespace OrvMediaLib {

namespace {

// The trims read the edge's length now, so they need the media at once.
const KelMediaLib::Media& mediaOf(const boost::shared_ptr<const KelMediaLib::Media>& media,
                                  const char* operation) {
  if (!media) {
    throw OrvException(std::string(operation) + ": no media given");
  }
  return *media;
}

}  // namespace

EdgeModRemoveCmdGenerator::~EdgeModRemoveCmdGenerator() = default;

boost::shared_ptr<KelMediaLib::Command> LeftEdgeModRemoveCmdGenerator::removeEdgeModCmd(
    boost::shared_ptr<const KelMediaLib::Media> media,
    boost::shared_ptr<const KelMediaLib::Parameter<double>> parameter) const {
  return KelMediaLib::RemoveLeftEdgeModCmd::create(media, parameter);
}

boost::shared_ptr<KelMediaLib::Command> LeftEdgeModRemoveCmdGenerator::trimEdgeModCmd(
    boost::shared_ptr<const KelMediaLib::Media> media) const {
  return KelMediaLib::MoveLeftEdgeModCmd::create(
      media, -mediaOf(media, "LeftEdgeModRemoveCmdGenerator::trimEdgeModCmd").leftEdgeLength());
}

boost::shared_ptr<KelMediaLib::Command> RightEdgeModRemoveCmdGenerator::removeEdgeModCmd(
    boost::shared_ptr<const KelMediaLib::Media> media,
    boost::shared_ptr<const KelMediaLib::Parameter<double>> parameter) const {
  return KelMediaLib::RemoveRightEdgeModCmd::create(media, parameter);
}

boost::shared_ptr<KelMediaLib::Command> RightEdgeModRemoveCmdGenerator::trimEdgeModCmd(
    boost::shared_ptr<const KelMediaLib::Media> media) const {
  return KelMediaLib::MoveRightEdgeModCmd::create(
      media, -mediaOf(media, "RightEdgeModRemoveCmdGenerator::trimEdgeModCmd").rightEdgeLength());
}

}  // namespace OrvMediaLib
