#include "actions/ActionImpl.h"

#include "actions/OrvException.h"
#include "actions/ParameterRange.h"
#include "core/EditJournal.h"
#include "core/XMLText.h"
#include "media/effects/Effect.h"
#include "media/media/Media.h"
#include "values/Parameter.h"

#include <boost/make_shared.hpp>
#include <boost/pointer_cast.hpp>

#include <ostream>
#include <string>

namespace OrvMediaLib {

using KelMediaLib::Media;
using KelMediaLib::Parameter;
using KelMediaLib::Parametric;
using KelMediaLib::Range;

namespace {

// A clone's parameter of that name: the media's own first, else the first
// effect, in effect order, that has one.
boost::shared_ptr<const Parameter<double>> findClonedParameter(const Media& clone,
                                                               const std::string& name) {
  boost::shared_ptr<const Parameter<double>> found =
      boost::dynamic_pointer_cast<Parameter<double>>(clone.parameterNamed(name));
  for (int i = 0; !found && i < clone.numEffects(); ++i) {
    found = boost::dynamic_pointer_cast<Parameter<double>>(clone.effectAt(i)->parameterNamed(name));
  }
  return found;
}

}  // namespace

void ActionImpl::ParameterRangeObserverRelay::observerUpdate() {
  action_->parameterRangeUpdate();
}

ActionImpl::ActionImpl(boost::shared_ptr<const Parametric> parametric,
                       const Range<long long>& timeRange)
    : parametric_(parametric),
      observerRelay_(new ParameterRangeObserverRelay(this)),
      timeRange_(timeRange) {
  if (!parametric_) {
    throw OrvException("an action needs a parametric");
  }
}

ActionImpl::ActionImpl(const ActionImpl& other)
    : KelObject(other),
      Action(other),
      parametric_(other.parametric_),
      parameterRanges_(other.parameterRanges_),
      observerRelay_(new ParameterRangeObserverRelay(this)),
      timeRange_(other.timeRange_) {
  for (const auto& range : parameterRanges_) {
    range->attach(observerRelay_.get());
  }
}

ActionImpl::JournalState ActionImpl::journalState() const {
  return JournalState{parametric_, parameterRanges_, timeRange_};
}

// The relay listens to exactly the ranges held.
void ActionImpl::restoreJournalState(const JournalState& state) {
  for (const auto& range : parameterRanges_) {
    range->detach(observerRelay_.get());
  }
  parametric_ = state.parametric;
  parameterRanges_ = state.ranges;
  timeRange_ = state.timeRange;
  for (const auto& range : parameterRanges_) {
    range->attach(observerRelay_.get());
  }
}

void ActionImpl::journalEdit() {
  if (KelMediaLib::EditJournal::current()) {
    KelMediaLib::EditJournal::note(boost::static_pointer_cast<ActionImpl>(weak_from_this().lock()));
  }
}

ActionImpl::~ActionImpl() {
  for (const auto& range : parameterRanges_) {
    range->detach(observerRelay_.get());
  }
}

Range<long long> ActionImpl::timeRange() const {
  return parameterRanges_.empty() ? timeRange_ : parameterRanges_.front()->timeRange();
}

Range<long long> ActionImpl::parametricTimeRange() const {
  const Range<long long> range = timeRange();
  // Only the start is mapped: callers use the duration on the key frame axis.
  const double start = parametric_->fromParameterTime(static_cast<double>(range.start));
  return Range<long long>(static_cast<long long>(start), range.duration);
}

boost::shared_ptr<ParameterRangeList> ActionImpl::parameterRanges() const {
  return boost::make_shared<ParameterRangeList>(parameterRanges_);
}

boost::shared_ptr<const Parametric> ActionImpl::parametric() const {
  return parametric_;
}

void ActionImpl::setParametric(boost::shared_ptr<const Parametric> parametric) {
  if (!parametric) {
    throw OrvException("an action needs a parametric");
  }
  journalEdit();
  parametric_ = parametric;
  for (auto& range : parameterRanges_) {
    // A copied action shares its source's ranges; the relay must not stay on
    // a range that outlives this action, or the range would call into a
    // dead action.
    range->detach(observerRelay_.get());
    range =
        boost::make_shared<ParameterRange>(parametric_, range->parameter(), range->leftKeyframe(),
                                           range->rightKeyframe(), range->modifier());
  }
}

bool ActionImpl::rangeMatchesAction(const ParameterRange& range) const {
  for (const auto& held : parameterRanges_) {
    if (held->leftKeyframe()->time() != range.leftKeyframe()->time() ||
        held->rightKeyframe()->time() != range.rightKeyframe()->time()) {
      return false;
    }
  }
  return true;
}

void ActionImpl::addParameterRange(const ParameterRange& range) {
  if (!rangeMatchesAction(range)) {
    throw OrvException("trying to add param range that doesn't match the action");
  }
  journalEdit();
  const boost::shared_ptr<ParameterRange> copy = boost::make_shared<ParameterRange>(range);
  copy->attach(observerRelay_.get());
  parameterRanges_.push_back(copy);
}

void ActionImpl::removeParameterRange(const ParameterRange& range) {
  for (auto it = parameterRanges_.begin(); it != parameterRanges_.end(); ++it) {
    const ParameterRange& held = **it;
    if (held.parameter() == range.parameter() && held.timeRange() == range.timeRange()) {
      journalEdit();
      // An action that loses its last range keeps its place.
      timeRange_ = Range<long long>(held.leftTime(), held.duration());
      held.detach(observerRelay_.get());
      parameterRanges_.erase(it);
      return;
    }
  }
}

bool ActionImpl::hasParameterRangeForParameterAndTimeRange(
    boost::shared_ptr<const Parameter<double>> parameter, Range<long long> timeRange) const {
  for (const auto& range : parameterRanges_) {
    if (range->parameter() == parameter && range->timeRange() == timeRange) {
      return true;
    }
  }
  return false;
}

bool ActionImpl::hasParameterRangeMeeting(const KelMediaLib::ParameterInterface* parameter,
                                          long long left, long long right) const {
  for (const auto& range : parameterRanges_) {
    if (range->parameter().get() == parameter && range->leftTime() <= right &&
        left <= range->rightTime()) {
      return true;
    }
  }
  return false;
}

void ActionImpl::parameterRangeUpdate() {
  notify();
}

int ActionImpl::numParameterRanges() const {
  return static_cast<int>(parameterRanges_.size());
}

void ActionImpl::setTimeRange(const Range<long long>& timeRange) {
  journalEdit();
  timeRange_ = timeRange;
  notify();
}

boost::shared_ptr<Action> ActionImpl::createCloneAction(
    const Media* /*source*/, boost::shared_ptr<const Media> clone) const {
  if (!clone) {
    throw OrvException("unable to clone an action onto a null media");
  }
  const boost::shared_ptr<Action> copy(this->clone());
  copy->setParametric(clone);
  const boost::shared_ptr<ParameterRangeList> own = parameterRanges();
  for (const auto& range : *own) {
    const std::string& name = range->parameter()->name();
    const boost::shared_ptr<ParameterRangeList> copied = copy->parameterRanges();
    for (const auto& target : *copied) {
      if (target->parameter()->name() != name) {
        continue;
      }
      copy->removeParameterRange(*target);
      const boost::shared_ptr<const Parameter<double>> parameter =
          findClonedParameter(*clone, name);
      if (!parameter) {
        throw OrvException("unable to find cloned actions parameter");
      }
      // A clone carries copies of its source's key frames at the same times.
      const Parameter<double>::KeyFramePtr left = parameter->keyFrame(target->leftTime());
      const Parameter<double>::KeyFramePtr right = parameter->keyFrame(target->rightTime());
      if (!left || !right) {
        throw OrvException("unable to find cloned actions key frames");
      }
      const ParameterRange cloned(target->parametric(), parameter, left, right, target->modifier());
      if (copy->numParameterRanges() <= 0) {
        copy->setTimeRange(cloned.timeRange());
      }
      copy->addParameterRange(cloned);
    }
  }
  return copy;
}

void ActionImpl::xmlAttributes(Options& options) const {
  // The file requires an id on every action, though no reader uses it.
  KelMediaLib::writeLiteral(options.out, "id=\"");
  KelMediaLib::writeXMLValue(options.out, options.ident(*this));
  KelMediaLib::writeLiteral(options.out, "\" timeRange=\"");
  KelMediaLib::writeXMLValue(options.out, timeRange());
  options.out << '"';
}

void ActionImpl::xmlBody(Options& options, int depth) const {
  const std::string indent = genIndent(depth);
  options.out << indent << "<ParameterRanges>\n";
  for (const auto& range : parameterRanges_) {
    range->toXML(options, depth + 1, std::string());
  }
  options.out << indent << "</ParameterRanges>\n";
}

}  // namespace OrvMediaLib
