#include "commands/OrigOrvChangeParamDeltaCmd.h"

#include "actions/ActionBin.h"
#include "actions/OrigToModified.h"
#include "actions/OrvException.h"
#include "actions/ParameterRange.h"
#include "actions/ParameterRangeCreator.h"
#include "actions/ParameterTime.h"
#include "commands/AddParameterRangeCmd.h"
#include "media/media/Media.h"
#include "values/ChangeParameterKeyFrameByDeltaCmd.h"
#include "values/Parameter.h"
#include "values/Parametric.h"

#include <boost/make_shared.hpp>
#include <boost/pointer_cast.hpp>

#include <limits>
#include <vector>

namespace OrvMediaLib {

using KelMediaLib::Parameter;
using KelMediaLib::Parametric;

namespace {

/// The key frame before `time` (the parametric's own time), else the one
/// after it, on the parametric's own axis; `time` itself if there is neither.
long long calcPrevOrNextKeyFrameTime(const boost::shared_ptr<const Parametric>& parametric,
                                     const boost::shared_ptr<const Parameter<double>>& parameter,
                                     long long time) {
  const long long at = truncateTime(parametric->toParameterTime(static_cast<double>(time)));
  const long long previous = parameter->prevKeyFrameTime(at);
  if (previous != std::numeric_limits<long long>::min()) {
    return truncateTime(parametric->fromParameterTime(static_cast<double>(previous)));
  }
  const long long next = parameter->nextKeyFrameTime(at);
  if (next != std::numeric_limits<long long>::max()) {
    return truncateTime(parametric->fromParameterTime(static_cast<double>(next)));
  }
  return time;
}

}  // namespace

boost::shared_ptr<OrigOrvChangeParamDeltaCmd> OrigOrvChangeParamDeltaCmd::create(
    boost::shared_ptr<const Parametric> parametric,
    boost::shared_ptr<const Parameter<double>> parameter, boost::shared_ptr<const ActionBin> bin,
    long long time, double delta) {
  return boost::shared_ptr<OrigOrvChangeParamDeltaCmd>(
      new OrigOrvChangeParamDeltaCmd(parametric, parameter, bin, time, delta));
}

OrigOrvChangeParamDeltaCmd::OrigOrvChangeParamDeltaCmd(
    boost::shared_ptr<const Parametric> parametric,
    boost::shared_ptr<const Parameter<double>> parameter, boost::shared_ptr<const ActionBin> bin,
    long long time, double delta)
    : parametric_(parametric), parameter_(parameter), bin_(bin), time_(time), delta_(delta) {
  if (!parametric_) {
    throw OrvException("OrigOrvChangeParamDeltaCmd: no parametric given");
  }
  if (!parameter_) {
    throw OrvException("OrigOrvChangeParamDeltaCmd: no parameter given");
  }
}

void OrigOrvChangeParamDeltaCmd::executeCommands(KelMediaLib::CommandHandler const*) {
  if (!bin_) {
    throw OrvException("Can't modify an action without an actionbin!");
  }
  const boost::shared_ptr<const KelMediaLib::Media> media =
      boost::dynamic_pointer_cast<const KelMediaLib::Media>(parametric_);
  const boost::shared_ptr<const Action> action = bin_->actionForMediaContainingTime(media, time_);
  bool onEdge = false;
  bool hasRange = false;
  KelMediaLib::Range<long long> stretch(0, 0);
  if (action) {
    stretch = action->timeRange();
    onEdge = time_ == stretch.start || time_ == stretch.start + stretch.duration;
    hasRange = action->hasParameterRangeForParameterAndTimeRange(parameter_, stretch);
  }

  if (onEdge && !hasRange) {
    const double value =
        parameter_->valueAt(parametric_->toParameterTime(static_cast<double>(time_)));
    const auto left =
        ParameterRangeCreator::createKeyFrameAtTime(parametric_, parameter_, stretch.start, value);
    const auto right = ParameterRangeCreator::createKeyFrameAtTime(
        parametric_, parameter_, stretch.start + stretch.duration, value);
    orvExecute(AddParameterRangeCmd::create(
        action, boost::make_shared<ParameterRange>(parametric_, parameter_, left, right,
                                                   OrigToModified())));
  }

  std::vector<long long> times;
  if (action && !onEdge && hasRange) {
    times.push_back(stretch.start);
    times.push_back(stretch.start + stretch.duration);
  } else if (parameter_->hasKeyFrameAt(
                 truncateTime(parametric_->toParameterTime(static_cast<double>(time_))))) {
    times.push_back(time_);
  } else {
    times.push_back(calcPrevOrNextKeyFrameTime(parametric_, parameter_, time_));
  }
  for (const long long time : times) {
    execute(KelMediaLib::ChangeParameterKeyFrameByDeltaCmd<const Parameter<double>>::create(
        parametric_, parameter_, time, delta_));
  }
}

}  // namespace OrvMediaLib
