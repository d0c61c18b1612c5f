#include "actions/ParameterRange.h"

#include "actions/InterpolaterEnforcer.h"
#include "actions/Modifier.h"
#include "actions/OrvException.h"
#include "actions/ParameterTime.h"
#include "core/EditJournal.h"
#include "core/XMLText.h"
#include "values/Parameter.h"
#include "values/Parametric.h"

#include <boost/pointer_cast.hpp>

#include <cmath>
#include <limits>
#include <ostream>
#include <utility>

namespace OrvMediaLib {

using KelMediaLib::KeyFrame;
using KelMediaLib::Parameter;
using KelMediaLib::Range;

namespace {

const long long kNoPreviousKeyFrame = std::numeric_limits<long long>::min();
const long long kNoNextKeyFrame = std::numeric_limits<long long>::max();

void setValue(const boost::shared_ptr<const KeyFrame<double>>& keyFrame, double value) {
  boost::const_pointer_cast<KeyFrame<double>>(keyFrame)->setValue(value);
}

// Equal, NaN included: a NaN handed on must not be handed back and forth.
bool sameValue(double a, double b) {
  return a == b || (std::isnan(a) && std::isnan(b));
}

}  // namespace

ParameterRange::ParameterRange(boost::shared_ptr<const KelMediaLib::Parametric> parametric,
                               boost::shared_ptr<const Parameter<double>> parameter,
                               boost::shared_ptr<const KeyFrameType> left,
                               boost::shared_ptr<const KeyFrameType> right,
                               const Modifier& modifier)
    : parametric_(std::move(parametric)),
      parameter_(std::move(parameter)),
      leftKeyframe_(std::move(left)),
      rightKeyframe_(std::move(right)),
      modifier_(modifier.clone()),
      leftValue_(0.0),
      rightValue_(0.0) {
  if (!parametric_ || !parameter_ || !leftKeyframe_ || !rightKeyframe_) {
    throw OrvException("a parameter range needs a parametric, a parameter and two key frames");
  }
  attachToKeyFrames();
  timeRange_ = timeRange();
  leftValue_ = leftKeyframe_->value();
  rightValue_ = rightKeyframe_->value();
}

ParameterRange::ParameterRange(const ParameterRange& other)
    : KelMediaLib::XMLIdentified(other),
      KelMediaLib::Subject(other),
      KelMediaLib::Observer(other),
      KelMediaLib::XMLable(other),
      boost::enable_shared_from_this<ParameterRange>(other),
      parametric_(other.parametric_),
      parameter_(other.parameter_),
      leftKeyframe_(other.leftKeyframe_),
      rightKeyframe_(other.rightKeyframe_),
      modifier_(other.modifier_->clone()),
      leftValue_(other.leftValue_),
      rightValue_(other.rightValue_),
      interpolater_(other.interpolater_) {
  attachToKeyFrames();
}

ParameterRange::~ParameterRange() {
  parameter_->detach(this);
  leftKeyframe_->detachHolder(this);
  rightKeyframe_->detachHolder(this);
}

// The parameter tells a range only of the changes at or just before its key
// frames, which are all that its update reads.
void ParameterRange::attachToKeyFrames() {
  parameter_->attachConcerned(this);
  leftKeyframe_->attachHolder(this);
  rightKeyframe_->attachHolder(this);
}

ParameterRange::JournalState ParameterRange::journalState() const {
  return JournalState{
      leftKeyframe_->value(), rightKeyframe_->value(), timeRange_, leftValue_, rightValue_,
      interpolater_};
}

void ParameterRange::restoreJournalState(const JournalState& state) {
  const auto left = boost::const_pointer_cast<KeyFrame<double>>(leftKeyframe_);
  const auto right = boost::const_pointer_cast<KeyFrame<double>>(rightKeyframe_);
  left->setValue(state.leftKeyframeValue);
  right->setValue(state.rightKeyframeValue);
  timeRange_ = state.seenTimeRange;
  leftValue_ = state.seenLeftValue;
  rightValue_ = state.seenRightValue;
  interpolater_ = state.interpolater;
}

void ParameterRange::journalEdit() {
  if (KelMediaLib::EditJournal::current()) {
    KelMediaLib::EditJournal::note(weak_from_this().lock());
  }
}

// A key frame of the parameter is written in place: going through the
// parameter would tell its observers of a change again from inside this
// update. The ranges that hold it or stand after it read it when they next
// update: in this notification if they are still to come, else in the next.
void ParameterRange::writeInPlace(const boost::shared_ptr<const KeyFrameType>& keyFrame,
                                  double value) {
  if (sameValue(keyFrame->value(), value)) {
    return;
  }
  if (keyFrame == leftKeyframe_ || keyFrame == rightKeyframe_) {
    journalEdit();
  }
  const long long time = keyFrame->time();
  const bool inParameter = parameter_->keyFrame(time) == keyFrame;
  if (inParameter) {
    parameter_->journalKeyFrame(time);
  }
  setValue(keyFrame, value);
  if (inParameter) {
    parameter_->askNextAround(time);
  }
}

void ParameterRange::setInterpolater(boost::shared_ptr<InterpolaterRange> interpolater) {
  journalEdit();
  interpolater_ = std::move(interpolater);
}

long long ParameterRange::leftTime() const {
  return leftKeyframe_->time();
}

long long ParameterRange::rightTime() const {
  return rightKeyframe_->time();
}

long long ParameterRange::duration() const {
  return rightTime() - leftTime();
}

Range<long long> ParameterRange::timeRange() const {
  return Range<long long>(leftTime(), duration());
}

Range<long long> ParameterRange::parametricTimeRange() const {
  const Range<long long> range = timeRange();
  return Range<long long>(
      truncateTime(parametric_->fromParameterTime(static_cast<double>(range.start))),
      range.duration);
}

void ParameterRange::observerUpdate() {
  bool changed = false;
  const Range<long long> now = timeRange();
  if (now != timeRange_) {
    journalEdit();
    timeRange_ = now;
    if (interpolater_) {
      updateInterpolater(now);
    }
    changed = true;
  }
  if (syncLeftValue()) {
    changed = true;
  }
  if (leftKeyframe_->value() != leftValue_) {
    journalEdit();
    leftValue_ = leftKeyframe_->value();
    handToPreviousKeyFrame();
    changed = true;
  }
  if (rightKeyframe_->value() != rightValue_) {
    journalEdit();
    rightValue_ = rightKeyframe_->value();
    handToNextKeyFrame();
    changed = true;
  }
  if (changed) {
    notify();
  }
}

void ParameterRange::updateInterpolater(const Range<long long>& now) {
  const long long old = interpolater_->keyframe()->time();
  if (old != now.start && interpolater_->parameter()->hasKeyFrameAt(old)) {
    boost::const_pointer_cast<InterpolaterRange::InterpolaterParameter>(interpolater_->parameter())
        ->moveKeyFrame(old, now.start);
  }
}

// The value of a parameter holds between two ranges, so a left key frame
// pulls the value of the key frame before it. Only while the parameter is in
// balance (a pair per range, plus a resting key frame at 0 or not): while a
// pair is half in or half out, the key frame before may be a stranger's; the
// range then asks to hear of the next change, which may restore the balance.
bool ParameterRange::syncLeftValue() {
  const long long previous = parameter_->prevKeyFrameTime(leftTime());
  if (previous == kNoPreviousKeyFrame) {
    return false;
  }
  const double value = parameter_->valueAt(static_cast<double>(previous));
  if (value == leftKeyframe_->value()) {
    return false;
  }
  const bool evenCount = parameter_->numKeyFrames() % 2 == 0;
  if (evenCount == parameter_->hasKeyFrameAt(0)) {
    parameter_->askNextNotification(this);
    return false;
  }
  writeInPlace(leftKeyframe_, value);
  return true;
}

void ParameterRange::handToPreviousKeyFrame() {
  const long long previous = parameter_->prevKeyFrameTime(leftTime());
  if (previous != kNoPreviousKeyFrame) {
    writeInPlace(parameter_->keyFrame(previous), leftKeyframe_->value());
  }
}

void ParameterRange::handToNextKeyFrame() {
  const long long next = parameter_->nextKeyFrameTime(rightTime());
  if (next != kNoNextKeyFrame) {
    writeInPlace(parameter_->keyFrame(next), rightKeyframe_->value());
  }
}

void ParameterRange::addRangesKeyframes(
    const boost::shared_ptr<const Parameter<double>>& parameter,
    const boost::shared_ptr<const KeyFrameType>& left,
    const boost::shared_ptr<const KeyFrameType>& right,
    const boost::shared_ptr<const InterpolaterRange::InterpolaterParameter>& interpolaterParameter,
    const boost::shared_ptr<const InterpolaterRange::InterpolaterKeyFrame>& interpolaterKeyframe) {
  if (!parameter || !left || !right) {
    throw OrvException("key frames of a parameter range need a parameter and two key frames");
  }
  const boost::shared_ptr<Parameter<double>> target =
      boost::const_pointer_cast<Parameter<double>>(parameter);

  if (left->value() == right->value()) {
    const long long next = target->nextKeyFrameTime(right->time());
    if (next != kNoNextKeyFrame) {
      setValue(right, target->valueAt(static_cast<double>(next)));
    }
  }

  if (target->numKeyFrames() == 1) {
    // The lone key frame is the resting one, normally at 0; one that a user
    // moved elsewhere gives way all the same.
    const long long restingTime = target->firstKeyFrameTime();
    const long long leftTime = left->time();
    target->replaceKeyFrame(restingTime, left);
    if (leftTime != restingTime) {
      target->moveKeyFrame(restingTime, leftTime);
    }
    target->addKeyFrame(right);
  } else {
    target->addKeyFrame(left);
    target->addKeyFrame(right);
  }

  if (interpolaterParameter) {
    const boost::shared_ptr<InterpolaterRange::InterpolaterParameter> companion =
        boost::const_pointer_cast<InterpolaterRange::InterpolaterParameter>(interpolaterParameter);
    if (companion->numKeyFrames() == 1 && companion->firstKeyFrameTime() != -1) {
      companion->moveKeyFrame(companion->firstKeyFrameTime(), -1);
    }
    companion->addKeyFrame(interpolaterKeyframe);
  }

  InterpolaterEnforcer::enforceFirstInterpolater(target);
}

void ParameterRange::xmlName(Options& options) const {
  KelMediaLib::writeLiteral(options.out, "ParameterRange");
}

void ParameterRange::xmlAttributes(Options& options) const {
  std::ostream& out = options.out;
  out << "id=\"";
  KelMediaLib::writeXMLValue(out, options.ident(*this));
  out << "\" parametric=\"";
  KelMediaLib::writeXMLValue(out, options.ident(*parametric_));
  out << "\" parameter=\"";
  KelMediaLib::writeXMLValue(out, parameter_->name());
  out << "\" left=\"";
  KelMediaLib::writeXMLValue(out, leftTime());
  out << "\" right=\"";
  KelMediaLib::writeXMLValue(out, rightTime());
  out << '"';
}

void ParameterRange::xmlBody(Options&, int) const {}

}  // namespace OrvMediaLib
