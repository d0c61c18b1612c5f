#include "commands/OrigOrvChangeParamDeltaCmd.h"

#include "actions/ActionBin.h"
#include "actions/OrigToModified.h"
#include "actions/OrvException.h"
#include "actions/ParameterRange.h"
#include "actions/ParameterTime.h"
#include "commands/AddParameterRangeCmd.h"
#include "media/media/Media.h"
#include "values/ChangeParameterKeyFrameByDeltaCmd.h"
#include "values/KeyFrame.h"
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

/// The key frame before `at`, else the one after it, else `at` itself; all on
/// the parameter's axis.
long long calcPrevOrNextKeyFrameTime(const boost::shared_ptr<const Parameter<double>>& parameter,
                                     long long at) {
  const long long previous = parameter->prevKeyFrameTime(at);
  if (previous != std::numeric_limits<long long>::min()) {
    return previous;
  }
  const long long next = parameter->nextKeyFrameTime(at);
  return next != std::numeric_limits<long long>::max() ? next : at;
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

// The edit's time is mapped onto the parameter's axis once; actions and key
// frames are found and written there, and the key frame commands get no
// parametric so that they take those times as they are (a trip through the
// media's own time and back truncates onto another time at any speed but 1).
void OrigOrvChangeParamDeltaCmd::executeCommands(KelMediaLib::CommandHandler const*) {
  if (!bin_) {
    throw OrvException("Can't modify an action without an actionbin!");
  }
  const long long at = truncateTime(parametric_->toParameterTime(static_cast<double>(time_)));
  const boost::shared_ptr<const KelMediaLib::Media> media =
      boost::dynamic_pointer_cast<const KelMediaLib::Media>(parametric_);
  const boost::shared_ptr<const Action> action = bin_->actionForMediaContainingTime(media, at);
  bool onEdge = false;
  bool hasRange = false;
  KelMediaLib::Range<long long> stretch(0, 0);
  if (action) {
    stretch = action->timeRange();
    onEdge = at == stretch.start || at == stretch.end();
    hasRange = action->hasParameterRangeForParameterAndTimeRange(parameter_, stretch);
  }

  if (onEdge && !hasRange) {
    const double value = parameter_->valueAt(static_cast<double>(at));
    orvExecute(AddParameterRangeCmd::create(
        action, boost::make_shared<ParameterRange>(
                    parametric_, parameter_,
                    boost::make_shared<KelMediaLib::KeyFrame<double>>(stretch.start, value),
                    boost::make_shared<KelMediaLib::KeyFrame<double>>(stretch.end(), value),
                    OrigToModified())));
  }

  std::vector<long long> times;
  if (action && !onEdge && hasRange) {
    times.push_back(stretch.start);
    times.push_back(stretch.end());
  } else if (parameter_->hasKeyFrameAt(at)) {
    times.push_back(at);
  } else {
    times.push_back(calcPrevOrNextKeyFrameTime(parameter_, at));
  }
  for (const long long time : times) {
    execute(KelMediaLib::ChangeParameterKeyFrameByDeltaCmd<const Parameter<double>>::create(
        boost::shared_ptr<const Parametric>(), parameter_, time, delta_));
  }
}

}  // namespace OrvMediaLib
