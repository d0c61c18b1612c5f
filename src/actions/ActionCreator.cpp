#include "actions/ActionCreator.h"

#include "actions/CenterAction.h"
#include "actions/EdgeAction.h"
#include "actions/OrvException.h"
#include "actions/ParameterRange.h"
#include "actions/ParameterRangeCreator.h"
#include "actions/ParameterTime.h"
#include "media/media/Media.h"

namespace OrvMediaLib {

using KelMediaLib::Range;

namespace {

boost::shared_ptr<Action> createEdgeAction(const boost::shared_ptr<const KelMediaLib::Media>& media,
                                           const Range<long long>& range) {
  const boost::shared_ptr<Action> action(new EdgeAction(media));
  // Compared in the caller's time: the ranges' key frames are tested again,
  // mapped, when they are added.
  const Range<long long> edges = media->mediaTimeRange();
  if (range.start != edges.start && range.end() != edges.end()) {
    throw OrvException("attempting to add an edge action not located at an edge");
  }
  return action;
}

}  // namespace

boost::shared_ptr<Action> ActionCreator::createAction(
    boost::shared_ptr<const KelMediaLib::Media> media, const ActionDescription& description,
    const Range<long long>& range) {
  const ActionDescription::ActionType type = description.actionType();
  if (type != ActionDescription::EDGE_ACTION && type != ActionDescription::CENTER_ACTION) {
    throw OrvException("Unsupported Action Description Type in Action Creator");
  }
  if (!media) {
    throw OrvException("attempting to create an action without a media");
  }
  const boost::shared_ptr<Action> action =
      type == ActionDescription::EDGE_ACTION
          ? createEdgeAction(media, range)
          : boost::shared_ptr<Action>(new CenterAction(media, range));

  if (description.rangeDescriptions().empty()) {
    action->setTimeRange(Range<long long>(
        truncateTime(media->toParameterTime(static_cast<double>(range.start))), range.duration));
    return action;
  }
  for (const ActionDescription::RangeDescription& rangeDescription : description) {
    action->addParameterRange(
        ParameterRangeCreator::createParamRange(media, rangeDescription, range));
  }
  return action;
}

}  // namespace OrvMediaLib
