#include "actions/ActionBin.h"

#include "actions/CollisionEnforcer.h"
#include "actions/OrvException.h"
#include "core/Observer.h"
#include "core/XMLText.h"
#include "media/effects/Effect.h"
#include "media/media/Media.h"

#include <boost/make_shared.hpp>

#include <algorithm>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

namespace OrvMediaLib {

using KelMediaLib::Media;
using KelMediaLib::Observer;
using KelMediaLib::Parametric;
using KelMediaLib::Range;

namespace {

// Touching counts as overlapping here: two actions of one media that share an
// end point would leave no key frame time between them.
bool actionsOverlap(const Range<long long>& a, const Range<long long>& b) {
  return a.intersection(b).duration > 0 || a.end() == b.start || b.end() == a.start;
}

// Both ends included: a time at the very end of an action still belongs to it.
bool holdsTime(const Action& action, long long time) {
  const Range<long long> range = action.timeRange();
  return range.start <= time && time <= range.start + range.duration;
}

boost::shared_ptr<const Action> firstHolding(const ActionList& actions, long long time) {
  for (const auto& action : actions) {
    if (holdsTime(*action, time)) {
      return action;
    }
  }
  return boost::shared_ptr<const Action>();
}

bool holdsEffect(const Media& media, const Parametric* parametric) {
  for (int i = 0; i < media.numEffects(); ++i) {
    if (static_cast<const Parametric*>(media.effectAt(i).get()) == parametric) {
      return true;
    }
  }
  return false;
}

}  // namespace

boost::shared_ptr<ActionBin> ActionBin::create() {
  return boost::shared_ptr<ActionBin>(new ActionBin());
}

// The enforcer and its watches die with the bin, so they may hold it by address.
ActionBin::ActionBin()
    : enforcer_(CollisionEnforcer::create(
          [this](boost::shared_ptr<const Media> media) { return mediasActions(media); })) {}

ActionBin::~ActionBin() {
  enforcer_.reset();
  // A media's clone handler serves the bins it was made for; it must not
  // outlive them.
  for (const auto& entry : actions_) {
    if (entry.first->cloneDecorator()) {
      entry.first->deleteCloneDecorator();
    }
  }
}

void ActionBin::addAction(boost::shared_ptr<const Media> media,
                          boost::shared_ptr<const Action> action) {
  if (!media || !action) {
    throw OrvException("unable to add action without a media and an action");
  }
  const auto found = actions_.find(media);
  if (found == actions_.end()) {
    actions_.emplace(media, ActionList(1, action));
  } else {
    ActionList& list = found->second;
    const Range<long long> range = action->timeRange();
    for (const auto& held : list) {
      if (actionsOverlap(held->timeRange(), range)) {
        throw OrvException("unable to add action, it collides with another existing action");
      }
    }
    const auto after = std::find_if(list.begin(), list.end(), [&range](const auto& held) {
      return held->timeRange().start > range.start;
    });
    list.insert(after, action);
  }
  enforcer_->addAction(media, action);
  notifyMedia(media);
}

void ActionBin::removeAction(boost::shared_ptr<const Action> action) {
  for (auto entry = actions_.begin(); entry != actions_.end(); ++entry) {
    ActionList& list = entry->second;
    const auto found = std::find_if(list.begin(), list.end(), [&action](const auto& held) {
      return held.get() == action.get();
    });
    if (found == list.end()) {
      continue;
    }
    const boost::shared_ptr<const Media> media = entry->first;
    list.erase(found);
    // Observers hear of it while the media's entry is still there.
    notifyMedia(media);
    const auto emptied = actions_.find(media);
    if (emptied != actions_.end() && emptied->second.empty()) {
      actions_.erase(emptied);
    }
    enforcer_->removeAction(action);
    return;
  }
  throw OrvException("attempting to remove an action that isn't in the action bin");
}

void ActionBin::removeMedia(boost::shared_ptr<const Media> media) {
  const auto found = actions_.find(media);
  if (found == actions_.end()) {
    throw OrvException("attempting to remove a media that isn't in the action bin");
  }
  enforcer_->removeMedia(media);
  actions_.erase(found);
  notifyMedia(media);
}

bool ActionBin::hasMedia(boost::shared_ptr<const Media> media) const {
  return actions_.count(media) != 0;
}

unsigned int ActionBin::numActions() const {
  std::size_t count = 0;
  for (const auto& entry : actions_) {
    count += entry.second.size();
  }
  return static_cast<unsigned int>(count);
}

bool ActionBin::containsAction(boost::shared_ptr<const Action> action) const {
  for (const auto& entry : actions_) {
    for (const auto& held : entry.second) {
      if (held.get() == action.get()) {
        return true;
      }
    }
  }
  return false;
}

boost::shared_ptr<ActionList> ActionBin::mediasActions(boost::shared_ptr<const Media> media) const {
  return mediasActions(media.get());
}

boost::shared_ptr<ActionList> ActionBin::mediasActions(const Media* media) const {
  const auto found = actions_.find(media);
  return found == actions_.end() ? boost::make_shared<ActionList>()
                                 : boost::make_shared<ActionList>(found->second);
}

ActionBin::ActionMap::const_iterator ActionBin::findParametric(const Parametric* parametric) const {
  if (const Media* media = dynamic_cast<const Media*>(parametric)) {
    const auto found = actions_.find(media);
    if (found != actions_.end()) {
      return found;
    }
  }
  return std::find_if(actions_.begin(), actions_.end(), [parametric](const auto& entry) {
    return holdsEffect(*entry.first, parametric);
  });
}

boost::shared_ptr<ActionList> ActionBin::parametricsActions(
    boost::shared_ptr<const Parametric> parametric) const {
  const auto found = findParametric(parametric.get());
  return found == actions_.end() ? boost::shared_ptr<ActionList>()
                                 : boost::make_shared<ActionList>(found->second);
}

boost::shared_ptr<const Action> ActionBin::actionForMediaContainingTime(
    boost::shared_ptr<const Media> media, long long time) const {
  const auto found = actions_.find(media);
  return found == actions_.end() ? boost::shared_ptr<const Action>()
                                 : firstHolding(found->second, time);
}

Range<long long> ActionBin::actionRangeForMediaContainingTime(boost::shared_ptr<const Media> media,
                                                              long long time) const {
  const boost::shared_ptr<const Action> action = actionForMediaContainingTime(media, time);
  return action ? action->timeRange() : Range<long long>(0, 0);
}

boost::shared_ptr<const Action> ActionBin::actionForParametricContainingTime(
    boost::shared_ptr<const Parametric> parametric, long long time) const {
  const auto found = findParametric(parametric.get());
  return found == actions_.end() ? boost::shared_ptr<const Action>()
                                 : firstHolding(found->second, time);
}

void ActionBin::mediaAttach(Observer* observer, boost::shared_ptr<const Media> media) const {
  boost::shared_ptr<KelMediaLib::Subject>& subject = mediaSubjects_[media];
  if (!subject) {
    subject = boost::make_shared<KelMediaLib::Subject>();
  }
  subject->attach(observer);
}

void ActionBin::mediaDetach(Observer* observer) const {
  for (const auto& entry : mediaSubjects_) {
    entry.second->detach(observer);
  }
}

void ActionBin::notifyMedia(const boost::shared_ptr<const Media>& media) const {
  const auto found = mediaSubjects_.find(media);
  if (found != mediaSubjects_.end()) {
    // Held here so that an observer may attach to other media meanwhile.
    const boost::shared_ptr<KelMediaLib::Subject> subject = found->second;
    subject->notify();
  }
}

void ActionBin::xmlName(Options& options) const {
  KelMediaLib::writeLiteral(options.out, "ActionBin");
}

void ActionBin::xmlAttributes(Options& options) const {
  KelMediaLib::writeLiteral(options.out, "id=\"");
  KelMediaLib::writeXMLValue(options.out, options.ident(*this));
  options.out << '"';
}

void ActionBin::xmlBody(Options& options, int depth) const {
  // In the order in which the document wrote the media, so that the text
  // doesn't depend on where the media lie in memory. Media the document
  // didn't write (an audio transition has no element) can't be named: their
  // actions are left out, and the file stays readable.
  std::vector<std::pair<unsigned int, const ActionMap::value_type*>> written;
  for (const auto& entry : actions_) {
    if (options.named(*entry.first)) {
      written.emplace_back(options.ident(*entry.first), &entry);
    }
  }
  std::sort(written.begin(), written.end(),
            [](const auto& a, const auto& b) { return a.first < b.first; });
  for (const auto& item : written) {
    KelMediaLib::writeIndent(options.out, depth);
    KelMediaLib::writeLiteral(options.out, "<MediasActions media=\"");
    KelMediaLib::writeXMLValue(options.out, item.first);
    KelMediaLib::writeLiteral(options.out, "\">\n");
    for (const auto& action : item.second->second) {
      action->toXML(options, depth + 1, std::string());
    }
    KelMediaLib::writeIndent(options.out, depth);
    KelMediaLib::writeLiteral(options.out, "</MediasActions>\n");
  }
}

}  // namespace OrvMediaLib
