#include "commands/AddActionCmd.h"

#include "actions/Action.h"
#include "actions/OrvException.h"
#include "actions/ParameterTime.h"
#include "commands/OrvCommandHandler.h"
#include "media/media/Media.h"
#include "values/Parameter.h"

#include <boost/pointer_cast.hpp>

#include <limits>

namespace OrvMediaLib {

using KelMediaLib::Media;
using KelMediaLib::Parameter;

boost::shared_ptr<AddActionCmd> AddActionCmd::create(boost::shared_ptr<const Media> media,
                                                     boost::shared_ptr<const ActionBin> bin,
                                                     const ActionDescription& description,
                                                     long long start, long long duration) {
  return boost::shared_ptr<AddActionCmd>(
      new AddActionCmd(media, bin, description, start, duration));
}

AddActionCmd::AddActionCmd(boost::shared_ptr<const Media> media,
                           boost::shared_ptr<const ActionBin> bin,
                           const ActionDescription& description, long long start,
                           long long duration)
    : media_(media), bin_(bin), description_(description), range_(start, duration) {
  if (!media_) {
    throw OrvException("AddActionCmd: no media given");
  }
}

long long AddActionCmd::calcEditTime(const Parameter<double>& parameter, long long time) {
  const long long previous = parameter.prevKeyFrameTime(time);
  if (previous != std::numeric_limits<long long>::min()) {
    return previous;
  }
  if (parameter.numKeyFrames() == 1) {
    return parameter.firstKeyFrameTime();
  }
  return parameter.nextKeyFrameTime(time);
}

void AddActionCmd::storeOrigValues(long long time, ValueMap& values) const {
  const double parameterTime = media_->toParameterTime(static_cast<double>(time));
  for (const ActionDescription::RangeDescription& range : description_) {
    const ParameterPtr parameter = boost::dynamic_pointer_cast<Parameter<double>>(
        media_->parameterNamed(range.parameterName()));
    if (!parameter) {
      throw OrvException("AddActionCmd: the media has no parameter of doubles named \"" +
                         range.parameterName() + "\"");
    }
    values[parameter] = parameter->valueAt(parameterTime);
  }
}

long long AddActionCmd::actionStart() const {
  return truncateTime(
      media_->fromParameterTime(static_cast<double>(createdAction_->timeRange().start)));
}

void AddActionCmd::execute(KelMediaLib::CommandHandler*) {
  storeOrigValues(range_.start, valuesBefore_);
  createdAction_ = orvCommandHandler()->addAction(media_, bin_, description_, range_);
  storeOrigValues(range_.start, valuesAfter_);
}

// Undo searches for the key frame to write back to, because the action's own
// key frames are gone; redo writes at the action's start, where its left key
// frame stands again.
void AddActionCmd::unexecute(KelMediaLib::CommandHandler*) {
  orvCommandHandler()->removeAction(createdAction_);
  const long long time = actionStart();
  for (const auto& entry : valuesBefore_) {
    const long long editTime = truncateTime(
        media_->toParameterTime(static_cast<double>(calcEditTime(*entry.first, time))));
    entry.first->setKeyFrameValue(editTime, entry.second);
  }
}

void AddActionCmd::reexecute(KelMediaLib::CommandHandler*) {
  orvCommandHandler()->addAction(bin_, createdAction_);
  const long long editTime =
      truncateTime(media_->toParameterTime(static_cast<double>(actionStart())));
  for (const auto& entry : valuesAfter_) {
    entry.first->setKeyFrameValue(editTime, entry.second);
  }
}

}  // namespace OrvMediaLib
