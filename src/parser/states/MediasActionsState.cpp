#include "parser/states/MediasActionsState.h"

#include "actions/CenterAction.h"
#include "actions/EdgeAction.h"
#include "media/media/Media.h"
#include "media/parser/AttributeCast.h"
#include "parser/states/ActionState.h"

#include <cstring>

namespace OrvMediaLib {

MediasActionsState::MediasActionsState(KelMediaLib::Parser* parser,
                                       boost::shared_ptr<OrvProject> project,
                                       boost::shared_ptr<const KelMediaLib::Media> media,
                                       boost::shared_ptr<const ActionBin> bin)
    : ParserState(parser), project_(std::move(project)), media_(std::move(media)),
      bin_(std::move(bin)) {}

KelMediaLib::ParserState* MediasActionsState::startElement(const char* name, const char** atts) {
  const bool center = std::strcmp(name, "CenterAction") == 0;
  // The writer writes an edge action under its own name; it is read back as
  // an edge action, so that a file written is never refused.
  if (!center && std::strcmp(name, "EdgeAction") != 0) {
    throwUnexpectedName(name, "MediasActionsState");
  }
  AttributeMap map;
  genMap("ActionState", "id timeRange", "", atts, map);
  const auto timeRange = KelMediaLib::attributeCast<KelMediaLib::Range<long long>>(map["timeRange"]);
  boost::shared_ptr<Action> action;
  if (center) {
    action = boost::make_shared<CenterAction>(media_, timeRange);
  } else {
    action = boost::make_shared<EdgeAction>(media_);
    action->setTimeRange(timeRange);
  }
  return new ActionState(parser(), project_, action, bin_);
}

}  // namespace OrvMediaLib
