#include "project/InternalOrvProject.h"

#include "actions/Action.h"
#include "actions/ActionBin.h"
#include "actions/ActionCreator.h"
#include "actions/OrvException.h"
#include "actions/ParameterRange.h"
#include "core/SubProject.h"
#include "media/media/Media.h"
#include "media/project/InternalProject.h"
#include "project/ProjectSupport.h"
#include "values/Parameter.h"
#include "values/ParameterInterface.h"

#include <array>
#include <string>

// The rules that keep actions and the key frames of their parameters in
// step: adding, moving, trimming and removing actions and their ranges.

namespace OrvMediaLib {

using KelMediaLib::Media;
using KelMediaLib::Parameter;
using KelMediaLib::ParameterInterface;
using KelMediaLib::Range;
using projectsupport::addTime;
using projectsupport::Bins;
using projectsupport::KeyFramePtr;
using projectsupport::mediaOf;
using projectsupport::require;
using projectsupport::subtractTime;
using projectsupport::writable;
using projectsupport::writableParameter;

namespace {

// Touching counts as colliding, as in the bins: two actions of one media
// that share an end point would leave no key frame time between them.
bool actionsOverlap(const Range<long long>& a, const Range<long long>& b) {
  return a.intersection(b).duration > 0 || a.end() == b.start || b.end() == a.start;
}

void putRangesKeyframes(const ParameterRange& range) {
  const boost::shared_ptr<InterpolaterRange> interpolater = range.interpolater();
  boost::shared_ptr<const InterpolaterRange::InterpolaterParameter> interpolaterParameter;
  boost::shared_ptr<const InterpolaterRange::InterpolaterKeyFrame> interpolaterKeyframe;
  if (interpolater) {
    interpolaterParameter = interpolater->parameter();
    interpolaterKeyframe = interpolater->keyframe();
  }
  ParameterRange::addRangesKeyframes(range.parameter(), range.leftKeyframe(), range.rightKeyframe(),
                                     interpolaterParameter, interpolaterKeyframe);
}

// The last range on a parameter: its pair is all there is, and nothing
// stands at 0 to become the resting key frame once the pair is gone.
bool needsTimeZeroKeyframe(const ParameterRange& range) {
  const Parameter<double>& parameter = *range.parameter();
  return !parameter.hasKeyFrameAt(0) && parameter.numKeyFrames() == 2;
}

// Keeps the value from before the range when its pair goes:
//
//     before:  100=5  200=9          after the pair has gone:  0=5
void addTimeZeroKeyframe(const ParameterRange& range) {
  if (needsTimeZeroKeyframe(range)) {
    writableParameter(range)->addKeyFrame(0, range.leftKeyframe()->value());
  }
}

// Each key frame goes only if the parameter still holds that very object at
// its time: another may have taken the time since. A lone pair that starts
// at 0 leaves its left key frame as the resting one. When the range was the
// earliest, the key frame now first takes over the range's starting value,
// which the parameter showed up to there:
//
//     before:  100=5  200=9  300=7  400=8      after:  300=5  400=8
void removeRangesKeyFrames(const ParameterRange& range) {
  const boost::shared_ptr<Parameter<double>> parameter = writableParameter(range);
  const KeyFramePtr left = range.leftKeyframe();
  const KeyFramePtr right = range.rightKeyframe();
  if (parameter->keyFrame(left->time()) == left &&
      (parameter->numKeyFrames() > 2 || left->time() != 0)) {
    parameter->removeKeyFrame(left->time());
  }
  if (parameter->keyFrame(right->time()) == right) {
    parameter->removeKeyFrame(right->time());
  }
  if (right->time() < parameter->firstKeyFrameTime()) {
    parameter->setKeyFrameValue(parameter->firstKeyFrameTime(), left->value());
  }
}

// Landing exactly on the neighbour's time passes; the parameter itself then
// refuses the move, as it keeps one key frame per time.
void throwIfMovingPastActions(const ParameterInterface& parameter, long long oldTime,
                              long long newTime) {
  const bool passes = newTime <= oldTime ? parameter.prevKeyFrameTime(oldTime) > newTime
                                         : parameter.nextKeyFrameTime(oldTime) < newTime;
  if (passes) {
    throw OrvException("attempting to move a keyframe past another");
  }
}

// A trim that leaves an action without length. With ranges, the parameter
// refuses it already, as a pair can't have both key frames at one time.
void throwIfNoLength(long long start, long long end) {
  if (subtractTime(end, start) <= 0) {
    throw OrvException("an action can't be trimmed to no length");
  }
}

// What an action animates must be of this project: its parametric, and for
// each range that very parametric and one of its own parameters. A key frame
// of another project's parameter would change behind that project's lock
// and history.
void throwIfOfAnotherProject(const KelMediaLib::InternalProject& project, const Action& action) {
  const auto* part = dynamic_cast<const KelMediaLib::SubProject*>(action.parametric().get());
  if (part && !project.isPartOfProject(*part)) {
    throw OrvException("the action's media belongs to another project");
  }
}

void throwIfNotTheActions(const Action& action, const ParameterRange& range) {
  if (range.parametric() != action.parametric()) {
    throw OrvException("a parameter range animates another media than its action's");
  }
  const auto parameter = range.parameter();
  if (!parameter || range.parametric()->parameterNamed(parameter->name()) != parameter) {
    throw OrvException("a parameter range's parameter isn't one of its media's");
  }
}

// Only the neighbours in the action's own bin count.
void throwIfCollisions(const ActionBin& bin, const Action& action, long long delta) {
  Range<long long> moved = action.timeRange();
  moved.start += delta;
  for (const boost::shared_ptr<const Action>& other :
       bin.actionsMeeting(mediaOf(action).get(), moved)) {
    if (other.get() != &action && actionsOverlap(moved, other->timeRange())) {
      throw OrvException("Action collision when moving");
    }
  }
}

// Ranges on one parameter stay apart, whichever bins hold their actions: the
// parameter keeps one key frame per time, so a range that reached onto
// another's would take that range's key frame from it. Whether a range of
// `self` on `parameter` over [left, right] would meet a range of another
// action of the media, in any bin but `skip`.
bool meetsAnotherRange(const std::array<const ActionBin*, 3>& bins, const Media* media,
                       const Action* self, const ParameterInterface* parameter, long long left,
                       long long right, const ActionBin* skip = nullptr) {
  for (const ActionBin* bin : bins) {
    if (bin == skip) continue;
    if (bin->anyAction(media, [=](const Action& other) {
          return &other != self && other.hasParameterRangeMeeting(parameter, left, right);
        })) {
      return true;
    }
  }
  return false;
}

// A lengthening trim reaches toward the action's neighbours in its bin, and a
// neighbour that animates other parameters has no key frame in its way.
void throwIfTrimCollides(const ActionBin* bin, const Action& action,
                         const Range<long long>& trimmed) {
  if (!bin) return;
  for (const boost::shared_ptr<const Action>& other :
       bin->actionsMeeting(mediaOf(action).get(), trimmed)) {
    if (other.get() != &action && actionsOverlap(trimmed, other->timeRange())) {
      throw OrvException("Action collision when trimming");
    }
  }
}

void moveKeyframeBy(Parameter<double>& parameter, const KeyFramePtr& keyframe, long long delta) {
  const long long time = keyframe->time();
  if (time + delta != time) {
    parameter.moveKeyFrame(time, time + delta);
  }
}
}  // namespace

void InternalOrvProject::parserAddAction(boost::shared_ptr<const ActionBin> bin,
                                         boost::shared_ptr<const Action> action) {
  require(action, "parserAddAction", "action");
  const boost::shared_ptr<ParameterRangeList> ranges = action->parameterRanges();
  // The reader has always run this test twice, and on the left key frames
  // only: a right key frame is trusted as the file gives it.
  for (int pass = 0; pass < 2; ++pass) {
    for (const boost::shared_ptr<ParameterRange>& range : *ranges) {
      const KeyFramePtr left = range->leftKeyframe();
      if (range->parameter()->keyFrame(left->time()) != left) {
        throw OrvException("adding action who's keyframes are invalid");
      }
    }
  }
  const boost::shared_ptr<const Media> media = mediaOf(*action);
  // A file may keep a parameter's resting key frame beside its pairs.
  for (const boost::shared_ptr<ParameterRange>& range : *ranges) {
    const boost::shared_ptr<Parameter<double>> parameter = writableParameter(*range);
    if (parameter->numKeyFrames() % 2 == 1 && parameter->hasKeyFrameAt(0)) {
      parameter->removeKeyFrame(0);
    }
  }
  const boost::shared_ptr<ActionBin> target = ownBin(bin);
  if (target) {
    target->addAction(media, action);
  }
}

// Actions.

boost::shared_ptr<Action> InternalOrvProject::addAction(boost::shared_ptr<const Media> media,
                                                        boost::shared_ptr<const ActionBin> bin,
                                                        ActionDescription const& description,
                                                        Range<long long> const& range) {
  // Two key frames of a pair at one time would be one key frame.
  if (range.duration < 0) {
    throw OrvException("an action can't have a negative duration");
  }
  if (range.duration == 0 && description.begin() != description.end()) {
    throw OrvException("an action of no length can't animate parameters");
  }
  addTime(range.start, range.duration);
  const boost::shared_ptr<Action> action = ActionCreator::createAction(media, description, range);
  addAction(bin, action);
  return action;
}

// Other bins are asked first and the target bin next (its own collision
// test keeps its actions apart), so that a collision leaves the parameters
// untouched.
void InternalOrvProject::addAction(boost::shared_ptr<const ActionBin> bin,
                                   boost::shared_ptr<const Action> action) {
  require(action, "addAction", "action");
  const boost::shared_ptr<const Media> media = mediaOf(*action);
  const boost::shared_ptr<ActionBin> target = ownBin(bin);
  if (!target) {
    throw OrvException("Invalid actionBin!");
  }
  throwIfOfAnotherProject(*project_, *action);
  const boost::shared_ptr<ParameterRangeList> ranges = action->parameterRanges();
  for (const boost::shared_ptr<ParameterRange>& range : *ranges) {
    throwIfNotTheActions(*action, *range);
    // On a stretched media two own times can map to one parameter time.
    if (range->rightTime() <= range->leftTime()) {
      throw OrvException("an action of no length can't animate parameters");
    }
    if (meetsAnotherRange(bins(), media.get(), action.get(), range->parameter().get(),
                          range->leftTime(), range->rightTime(), target.get())) {
      throw OrvException("Action collision: another action animates " + range->parameter()->name() +
                         " over its time");
    }
  }
  target->addAction(media, action);
  for (const boost::shared_ptr<ParameterRange>& range : *ranges) {
    putRangesKeyframes(*range);
  }
}

// Key frames move in an order that keeps a pair from passing through
// itself: the right one first on a move to the right, else the left one.
//
//     +10:  [100 .. 200]  ->  [100 .. 210]  ->  [110 .. 210]
void InternalOrvProject::moveAction(boost::shared_ptr<const Action> action, long long delta) {
  const boost::shared_ptr<ActionBin> bin = actionBinForAction(action);
  if (!bin) {
    throw OrvException("action doesn't exist inside any action bins");
  }
  const Range<long long> now = action->timeRange();
  addTime(now.start, delta);
  addTime(now.end(), delta);
  throwIfCollisions(*bin, *action, delta);
  const boost::shared_ptr<ParameterRangeList> ranges = action->parameterRanges();
  for (const boost::shared_ptr<ParameterRange>& range : *ranges) {
    // On a stretched media two own times can map to one parameter time.
    if (range->rightTime() <= range->leftTime()) {
      throw OrvException("an action of no length can't animate parameters");
    }
    if (meetsAnotherRange(bins(), mediaOf(*action).get(), action.get(), range->parameter().get(),
                          range->leftTime() + delta, range->rightTime() + delta)) {
      throw OrvException("Action collision when moving");
    }
  }
  if (ranges->empty()) {
    Range<long long> moved = action->timeRange();
    moved.start += delta;
    writable(*action).setTimeRange(moved);
    return;
  }
  for (const boost::shared_ptr<ParameterRange>& range : *ranges) {
    const boost::shared_ptr<Parameter<double>> parameter = writableParameter(*range);
    if (delta > 0) {
      moveKeyframeBy(*parameter, range->rightKeyframe(), delta);
      moveKeyframeBy(*parameter, range->leftKeyframe(), delta);
    } else {
      moveKeyframeBy(*parameter, range->leftKeyframe(), delta);
      moveKeyframeBy(*parameter, range->rightKeyframe(), delta);
    }
  }
}

void InternalOrvProject::addParameterRange(boost::shared_ptr<const Action> action,
                                           boost::shared_ptr<const ParameterRange> range) {
  if (!actionBinForAction(action)) {
    throw OrvException("action doesn't exist inside any action bins");
  }
  require(range, "addParameterRange", "parameter range");
  throwIfNotTheActions(*action, *range);
  // Adding shares the message of removing: one check serves both.
  if (action->timeRange() != range->timeRange()) {
    throw OrvException("Range to remove and action range don't match");
  }
  if (action->hasParameterRangeForParameterAndTimeRange(range->parameter(), range->timeRange())) {
    throw OrvException(
        "Can't add parameter range because there's already a parameter range for the specified "
        "parameter");
  }
  if (meetsAnotherRange(bins(), mediaOf(*action).get(), action.get(), range->parameter().get(),
                        range->leftTime(), range->rightTime())) {
    throw OrvException("Can't add parameter range because another action animates " +
                       range->parameter()->name() + " over its time");
  }
  putRangesKeyframes(*range);
  writable(*action).addParameterRange(*range);
}

void InternalOrvProject::mergeParameterRange(boost::shared_ptr<const Action>,
                                             boost::shared_ptr<const ParameterRange>) {
  throw OrvException("Can't merge parameter ranges yet!");
}

void InternalOrvProject::removeParameterRange(boost::shared_ptr<const Action> action,
                                              boost::shared_ptr<const Parameter<double>> parameter,
                                              Range<long long> const& range) {
  if (!actionBinForAction(action)) {
    throw OrvException("action doesn't exist inside any action bins");
  }
  if (action->timeRange() != range) {
    throw OrvException("Range to remove and action range don't match");
  }
  const boost::shared_ptr<ParameterRangeList> ranges = action->parameterRanges();
  for (const boost::shared_ptr<ParameterRange>& held : *ranges) {
    if (held->parameter() == parameter && held->timeRange() == range) {
      addTimeZeroKeyframe(*held);
      writable(*action).removeParameterRange(*held);
      removeRangesKeyFrames(*held);
    }
  }
}

// The key frames go before the bin is looked for: an action that is in no
// bin leaves its parameters changed when this throws. Callers rely on the
// action keeping its ranges and key frame objects, to add it back later.
boost::shared_ptr<ActionBin> InternalOrvProject::removeAction(
    boost::shared_ptr<const Action> action) {
  require(action, "removeAction", "action");
  const boost::shared_ptr<ParameterRangeList> ranges = action->parameterRanges();
  for (const boost::shared_ptr<ParameterRange>& range : *ranges) {
    addTimeZeroKeyframe(*range);
  }
  for (const boost::shared_ptr<ParameterRange>& range : *ranges) {
    removeRangesKeyFrames(*range);
  }
  const boost::shared_ptr<ActionBin> bin = actionBinForAction(action);
  if (!bin) {
    throw OrvException("action doesn't exist inside any action bins");
  }
  bin->removeAction(action);
  return bin;
}

// A trim tests the action's new stretch against its neighbours in the bin;
// the past-neighbour test and the bin's enforcer, told of each key frame
// move, stop the rest. A trim onto the very time of the range's other key
// frame passes the test, but the parameter keeps one key frame per time and
// refuses the move with its `KelMediaLibException`, so no range of duration 0
// arises.
void InternalOrvProject::trimActionEnd(boost::shared_ptr<const Action> action, long long delta) {
  require(action, "trimActionEnd", "action");
  if (delta == 0) {
    return;
  }
  const Range<long long> now = action->timeRange();
  // The new end and the new duration must both be representable.
  const long long end = subtractTime(now.end(), delta);
  subtractTime(end, now.start);
  const Range<long long> trimmed(now.start, end - now.start);
  const boost::shared_ptr<ParameterRangeList> ranges = action->parameterRanges();
  if (ranges->empty()) {
    throwIfNoLength(now.start, end);
    throwIfTrimCollides(actionBinForAction(action).get(), *action, trimmed);
    writable(*action).setTimeRange(trimmed);
    return;
  }
  for (const boost::shared_ptr<ParameterRange>& range : *ranges) {
    const long long oldTime = range->rightKeyframe()->time();
    throwIfMovingPastActions(*range->parameter(), oldTime, oldTime - delta);
  }
  throwIfTrimCollides(actionBinForAction(action).get(), *action, trimmed);
  for (const boost::shared_ptr<ParameterRange>& range : *ranges) {
    const long long oldTime = range->rightKeyframe()->time();
    writableParameter(*range)->moveKeyFrame(oldTime, oldTime - delta);
  }
}

void InternalOrvProject::trimActionStart(boost::shared_ptr<const Action> action, long long delta) {
  require(action, "trimActionStart", "action");
  if (delta == 0) {
    return;
  }
  const Range<long long> now = action->timeRange();
  const long long start = addTime(now.start, delta);
  subtractTime(now.end(), start);
  const Range<long long> trimmed(start, now.end() - start);
  const boost::shared_ptr<ParameterRangeList> ranges = action->parameterRanges();
  if (ranges->empty()) {
    throwIfNoLength(start, now.end());
    throwIfTrimCollides(actionBinForAction(action).get(), *action, trimmed);
    writable(*action).setTimeRange(trimmed);
    return;
  }
  for (const boost::shared_ptr<ParameterRange>& range : *ranges) {
    const long long oldTime = range->leftKeyframe()->time();
    throwIfMovingPastActions(*range->parameter(), oldTime, oldTime + delta);
  }
  throwIfTrimCollides(actionBinForAction(action).get(), *action, trimmed);
  for (const boost::shared_ptr<ParameterRange>& range : *ranges) {
    const long long oldTime = range->leftKeyframe()->time();
    writableParameter(*range)->moveKeyFrame(oldTime, oldTime + delta);
  }
}

std::array<const ActionBin*, 3> InternalOrvProject::bins() const {
  return {actionBin_.get(), zdActionBin_.get(), audioActionBin_.get()};
}

boost::shared_ptr<ActionBin> InternalOrvProject::actionBinForAction(
    boost::shared_ptr<const Action> action) const {
  for (const boost::shared_ptr<ActionBin>& bin : {actionBin_, zdActionBin_, audioActionBin_}) {
    if (bin->containsAction(action)) {
      return bin;
    }
  }
  return boost::shared_ptr<ActionBin>();
}

boost::shared_ptr<ActionBin> InternalOrvProject::ownBin(
    const boost::shared_ptr<const ActionBin>& bin) const {
  for (const boost::shared_ptr<ActionBin>& own : {actionBin_, zdActionBin_, audioActionBin_}) {
    if (own.get() == bin.get()) {
      return own;
    }
  }
  return boost::shared_ptr<ActionBin>();
}

// A null parameter is the inner project's to refuse.
void InternalOrvProject::moveParameterKeyFrame(
    boost::shared_ptr<const KelMediaLib::Parametric> parametric,
    boost::shared_ptr<const ParameterInterface> parameter, long long oldTime, long long newTime) {
  if (parameter) {
    throwIfMovingPastActions(*parameter, oldTime, newTime);
  }
  project_->moveParameterKeyFrame(parametric, parameter, oldTime, newTime);
}

}  // namespace OrvMediaLib
