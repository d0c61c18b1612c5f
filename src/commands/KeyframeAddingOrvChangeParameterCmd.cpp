#include "commands/KeyframeAddingOrvChangeParameterCmd.h"

#include "actions/ActionBin.h"
#include "actions/OrigToModified.h"
#include "actions/OrvException.h"
#include "actions/ParameterRange.h"
#include "actions/ParameterTime.h"
#include "commands/AddParameterRangeCmd.h"
#include "values/ChangeParameterKeyFrameCmd.h"
#include "values/KeyFrame.h"
#include "values/Parameter.h"
#include "values/Parametric.h"

#include <boost/make_shared.hpp>

#include <limits>

namespace OrvMediaLib {

using KelMediaLib::Parameter;
using KelMediaLib::Parametric;

/// What the edit is about; the time is on the parametric's own axis.
struct KeyframeAddingOrvChangeParameterCmdImpl {
  boost::shared_ptr<const ActionBin> bin;
  boost::shared_ptr<const Parametric> parametric;
  boost::shared_ptr<const Parameter<double>> parameter;
  long long time;
  double value;
};

namespace {

typedef KeyframeAddingOrvChangeParameterCmdImpl Impl;
typedef boost::shared_ptr<const Action> ActionPtr;

const long long noEarlierKeyFrame = std::numeric_limits<long long>::min();

long long endOf(const ActionPtr& action) {
  const KelMediaLib::Range<long long> range = action->timeRange();
  return range.start + range.duration;
}

/// Sets the key frame at `parameterTime`. The edit's time is mapped onto the
/// parameter's axis once, in `executeCommands`; every time below is a key
/// frame's own, passed without a parametric so that the change command takes
/// it as it is (a trip through the media's own time and back truncates onto
/// another time at any speed but 1).
void changeKeyFrame(OrvMultiCommand& group, const Impl& impl, long long parameterTime,
                    double value) {
  if (parameterTime == std::numeric_limits<long long>::min() ||
      parameterTime == std::numeric_limits<long long>::max()) {
    throw OrvException("KeyframeAddingOrvChangeParameterCmd: the parameter has no key frame");
  }
  group.execute(KelMediaLib::ChangeParameterKeyFrameCmd<Parameter<double>>::create(
      boost::shared_ptr<const Parametric>(), impl.parameter, parameterTime, value));
}

bool isTimeBeforeActions(long long time, const boost::shared_ptr<const ActionBin>& bin,
                         const boost::shared_ptr<const Parametric>& parametric) {
  const boost::shared_ptr<ActionList> actions = bin->parametricsActions(parametric);
  if (!actions) {
    return true;
  }
  for (const ActionPtr& action : *actions) {
    if (action->timeRange().start < time) {
      return false;
    }
  }
  return true;
}

/// Of the actions that start after `time`, the one that starts first.
ActionPtr findNextAction(const Impl& impl, long long time) {
  const boost::shared_ptr<ActionList> actions = impl.bin->parametricsActions(impl.parametric);
  ActionPtr found;
  if (!actions) {
    return found;
  }
  for (const ActionPtr& action : *actions) {
    const long long start = action->timeRange().start;
    if (start > time && (!found || start < found->timeRange().start)) {
      found = action;
    }
  }
  return found;
}

/// Of the actions that end before `time`, the one that starts last. One that
/// ends at `time` still touches the edit and isn't taken.
ActionPtr findPreviousAction(const Impl& impl, long long time) {
  const boost::shared_ptr<ActionList> actions = impl.bin->parametricsActions(impl.parametric);
  ActionPtr found;
  if (!actions) {
    return found;
  }
  for (const ActionPtr& action : *actions) {
    if (endOf(action) < time && (!found || action->timeRange().start > found->timeRange().start)) {
      found = action;
    }
  }
  return found;
}

bool actionHasParameterKeyframes(const ActionPtr& action,
                                 const boost::shared_ptr<const Parameter<double>>& parameter) {
  const boost::shared_ptr<ParameterRangeList> ranges = action->parameterRanges();
  for (const boost::shared_ptr<ParameterRange>& range : *ranges) {
    if (range->parameter() == parameter) {
      return true;
    }
  }
  return false;
}

/// Pins the action's current value with a flat range over its whole stretch.
void addParameterRange(OrvMultiCommand& group, const Impl& impl, const ActionPtr& action) {
  const long long start = action->timeRange().start;
  const long long end = endOf(action);
  const double value = impl.parameter->valueAt(static_cast<double>(start));
  const boost::shared_ptr<const ParameterRange> range = boost::make_shared<ParameterRange>(
      impl.parametric, impl.parameter,
      boost::make_shared<KelMediaLib::KeyFrame<double>>(start, value),
      boost::make_shared<KelMediaLib::KeyFrame<double>>(end, value), OrigToModified());
  group.orvExecute(AddParameterRangeCmd::create(action, range));
}

void addRangeUnlessAnchored(OrvMultiCommand& group, const Impl& impl, const ActionPtr& action) {
  if (action && !actionHasParameterKeyframes(action, impl.parameter)) {
    addParameterRange(group, impl, action);
  }
}

void addSucceedingParameterRange(OrvMultiCommand& group, const Impl& impl, long long time) {
  addRangeUnlessAnchored(group, impl, findNextAction(impl, time));
}

void addPreceedingParameterRange(OrvMultiCommand& group, const Impl& impl, long long time) {
  addRangeUnlessAnchored(group, impl, findPreviousAction(impl, time));
}

void addUnderActionParameterRange(OrvMultiCommand& group, const Impl& impl,
                                  const ActionPtr& action) {
  addRangeUnlessAnchored(group, impl, action);
}

/// Anchors the actions around the edit so that they keep their values.
void addNecessaryParameterRanges(OrvMultiCommand& group, const Impl& impl, long long time,
                                 const ActionPtr& action) {
  addSucceedingParameterRange(group, impl, time);
  if (!isTimeBeforeActions(time, impl.bin, impl.parametric)) {
    addPreceedingParameterRange(group, impl, time);
  }
  addUnderActionParameterRange(group, impl, action);
}

void handleRightKeyframeEdit(OrvMultiCommand& group, const Impl& impl, long long time) {
  changeKeyFrame(group, impl, time, impl.value);
}

/// The key frame that opens an action carries the value of what lies before
/// it, so the edit goes to the key frame before (or to this one if it is the
/// first):
///
///       edit at 100 (opens the action):   0=5 ... [100=5 ... 200=9]
///       written:                           0=v     100 follows 0
void handleLeftKeyframeEdit(OrvMultiCommand& group, const Impl& impl, long long time) {
  long long target = impl.parameter->prevKeyFrameTime(time);
  if (target == noEarlierKeyFrame) {
    target = time;
  }
  changeKeyFrame(group, impl, target, impl.value);
}

void handleEditOnKeyframe(OrvMultiCommand& group, const Impl& impl, const ActionPtr& action,
                          long long time) {
  if (action && action->timeRange().start == time) {
    handleLeftKeyframeEdit(group, impl, time);
  } else {
    handleRightKeyframeEdit(group, impl, time);
  }
}

/// An edit inside an action, off its key frames, lifts the whole action by
/// the difference at the edit; the value there becomes the new one only where
/// the action's shape passes through it.
///
///       before:  [100=2 ....... 200=6]    edit at 150 to 7 (was 4): d = -3
///       after:   [100=5 ....... 200=9]
void handleIntraMediaEdit(OrvMultiCommand& group, const Impl& impl, long long time,
                          const ActionPtr& action) {
  const double difference = impl.parameter->valueAt(static_cast<double>(time)) - impl.value;
  const long long start = action->timeRange().start;
  const long long end = endOf(action);
  const double startValue = impl.parameter->valueAt(static_cast<double>(start)) - difference;
  const double endValue = impl.parameter->valueAt(static_cast<double>(end)) - difference;
  changeKeyFrame(group, impl, start, startValue);
  changeKeyFrame(group, impl, end, endValue);
}

/// Outside every action the edit lands on the key frame before it, or, with
/// none before, on the one after. With neither, the edit is refused.
void handleEditBetweenKeyframes(OrvMultiCommand& group, const Impl& impl, long long time) {
  long long target = impl.parameter->prevKeyFrameTime(time);
  if (target == noEarlierKeyFrame) {
    target = impl.parameter->nextKeyFrameTime(time);
  }
  changeKeyFrame(group, impl, target, impl.value);
}

void requireObjects(const boost::shared_ptr<const ActionBin>& bin,
                    const boost::shared_ptr<const Parametric>& parametric,
                    const boost::shared_ptr<const Parameter<double>>& parameter) {
  if (!bin) {
    throw OrvException("KeyframeAddingOrvChangeParameterCmd: no action bin given");
  }
  if (!parametric) {
    throw OrvException("KeyframeAddingOrvChangeParameterCmd: no parametric given");
  }
  if (!parameter) {
    throw OrvException("KeyframeAddingOrvChangeParameterCmd: no parameter given");
  }
}

}  // namespace

boost::shared_ptr<KeyframeAddingOrvChangeParameterCmd> KeyframeAddingOrvChangeParameterCmd::create(
    boost::shared_ptr<const ActionBin> bin, boost::shared_ptr<const Parametric> parametric,
    boost::shared_ptr<const Parameter<double>> parameter, long long time, double value) {
  return boost::shared_ptr<KeyframeAddingOrvChangeParameterCmd>(
      new KeyframeAddingOrvChangeParameterCmd(bin, parametric, parameter, time, value));
}

boost::shared_ptr<KeyframeAddingOrvChangeParameterCmd>
KeyframeAddingOrvChangeParameterCmd::createWithDelta(
    boost::shared_ptr<const ActionBin> bin, boost::shared_ptr<const Parametric> parametric,
    boost::shared_ptr<const Parameter<double>> parameter, long long time, double delta) {
  requireObjects(bin, parametric, parameter);
  const double value =
      parameter->valueAt(parametric->toParameterTime(static_cast<double>(time))) + delta;
  return create(bin, parametric, parameter, time, value);
}

KeyframeAddingOrvChangeParameterCmd::KeyframeAddingOrvChangeParameterCmd(
    boost::shared_ptr<const ActionBin> bin, boost::shared_ptr<const Parametric> parametric,
    boost::shared_ptr<const Parameter<double>> parameter, long long time, double value)
    : impl_(new Impl{bin, parametric, parameter, time, value}) {
  requireObjects(bin, parametric, parameter);
}

KeyframeAddingOrvChangeParameterCmd::~KeyframeAddingOrvChangeParameterCmd() = default;

void KeyframeAddingOrvChangeParameterCmd::executeCommands(KelMediaLib::CommandHandler const*) {
  const Impl& impl = *impl_;
  const long long time =
      truncateTime(impl.parametric->toParameterTime(static_cast<double>(impl.time)));
  const ActionPtr action = impl.bin->actionForParametricContainingTime(impl.parametric, time);
  addNecessaryParameterRanges(*this, impl, time, action);
  if (impl.parameter->hasKeyFrameAt(time)) {
    handleEditOnKeyframe(*this, impl, action, time);
  } else if (action) {
    handleIntraMediaEdit(*this, impl, time, action);
  } else {
    handleEditBetweenKeyframes(*this, impl, time);
  }
}

}  // namespace OrvMediaLib
