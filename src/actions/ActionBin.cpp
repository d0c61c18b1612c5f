#include "actions/ActionBin.h"

#include "actions/CollisionEnforcer.h"
#include "actions/OrvException.h"
#include "core/EditJournal.h"
#include "core/Observer.h"
#include "core/XMLText.h"
#include "media/effects/Effect.h"
#include "media/media/AudioTransition.h"
#include "media/media/Media.h"

#include <boost/make_shared.hpp>

#include <algorithm>
#include <iterator>
#include <unordered_set>
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
    : enforcer_(
          CollisionEnforcer::create([this](const Media* media) { return heldActions(media); })) {}

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

class ActionBin::JournalEntry : public KelMediaLib::EditJournal::Entry {
 public:
  struct Part {
    boost::shared_ptr<const Media> media;
    boost::shared_ptr<const Action> action;
  };

  explicit JournalEntry(const boost::shared_ptr<ActionBin>& bin) : bin_(bin) {}

  void notePart(const Part& part) {
    if (noted_.count(part.action.get()) == 0) {
      frames_.push_back(Frame{part.action, originalPlace(part.action), Place()});
      noted_.insert(part.action.get());
    }
  }
  void captureAfter() override {
    for (Frame& frame : frames_) {
      frame.after = place(frame.action);
    }
  }
  void restoreBefore() override { restore(&Frame::before); }
  void restoreAfter() override { restore(&Frame::after); }

 private:
  struct Place {
    boost::shared_ptr<const Media> media;  // null: not in the bin
    ActionList::size_type index = 0;
  };
  struct Frame {
    boost::shared_ptr<const Action> action;
    Place before;
    Place after;
  };

  Place place(const boost::shared_ptr<const Action>& action) const {
    Place at;
    const boost::shared_ptr<ActionBin> bin = bin_.lock();
    if (!bin) {
      return at;
    }
    const auto media = bin->mediaOfAction_.find(action.get());
    if (media != bin->mediaOfAction_.end()) {
      const ActionList& list = bin->actions_.find(media->second)->second;
      at.media = media->second;
      at.index = static_cast<ActionList::size_type>(
          std::distance(list.begin(), std::find(list.begin(), list.end(), action)));
    }
    return at;
  }

  // Where the action stood before the edit. The actions noted earlier may
  // have moved already; the others stand as they stood. The action's index
  // among those others, stepped over the earlier noted ones' first places,
  // is its first place.
  Place originalPlace(const boost::shared_ptr<const Action>& action) const {
    Place at = place(action);
    if (!at.media) {
      return at;
    }
    const boost::shared_ptr<ActionBin> bin = bin_.lock();
    const ActionList& list = bin->actions_.find(at.media)->second;
    ActionList::size_type index = 0;
    for (const auto& held : list) {
      if (held == action) {
        break;
      }
      if (noted_.count(held.get()) == 0) {
        ++index;
      }
    }
    std::vector<ActionList::size_type> earlier;
    for (const Frame& frame : frames_) {
      if (frame.before.media == at.media) {
        earlier.push_back(frame.before.index);
      }
    }
    std::sort(earlier.begin(), earlier.end());
    for (const ActionList::size_type taken : earlier) {
      if (taken <= index) {
        ++index;
      }
    }
    at.index = index;
    return at;
  }

  // The noted actions all come out; the others keep their order, so putting
  // the noted ones back by rising index gives each list exactly as it was.
  void restore(Place Frame::*which) const {
    const boost::shared_ptr<ActionBin> bin = bin_.lock();
    if (!bin) {
      return;
    }
    std::vector<const Frame*> back;
    for (const Frame& frame : frames_) {
      const auto held = bin->mediaOfAction_.find(frame.action.get());
      if (held != bin->mediaOfAction_.end()) {
        bin->takeOut(boost::shared_ptr<const Media>(held->second), frame.action.get());
      }
      if ((frame.*which).media) {
        back.push_back(&frame);
      }
    }
    std::sort(back.begin(), back.end(), [which](const Frame* a, const Frame* b) {
      return (a->*which).index < (b->*which).index;
    });
    for (const Frame* frame : back) {
      bin->insertAt((frame->*which).media, (frame->*which).index, frame->action);
    }
  }

  boost::weak_ptr<ActionBin> bin_;
  std::unordered_set<const Action*> noted_;
  std::vector<Frame> frames_;
};

void ActionBin::journalEdit(const boost::shared_ptr<const Media>& media,
                            const boost::shared_ptr<const Action>& action) {
  if (KelMediaLib::EditJournal::current()) {
    KelMediaLib::EditJournal::notePart<JournalEntry>(weak_from_this().lock(),
                                                     JournalEntry::Part{media, action});
  }
}

void ActionBin::insertAt(const boost::shared_ptr<const Media>& media, ActionList::size_type index,
                         const boost::shared_ptr<const Action>& action) {
  ActionList& list = actions_[media];
  list.insert(std::next(list.begin(), static_cast<std::ptrdiff_t>(std::min(index, list.size()))),
              action);
  mediaOfAction_[action.get()] = media;
  enforcer_->addAction(media, action);
}

bool ActionBin::takeOut(const boost::shared_ptr<const Media>& media, const Action* action) {
  const auto entry = actions_.find(media);
  if (entry == actions_.end()) {
    return false;
  }
  ActionList& list = entry->second;
  const auto found = std::find_if(list.begin(), list.end(),
                                  [action](const auto& held) { return held.get() == action; });
  if (found == list.end()) {
    return false;
  }
  const boost::shared_ptr<const Action> held = *found;
  list.erase(found);
  if (list.empty()) {
    actions_.erase(entry);
  }
  mediaOfAction_.erase(action);
  enforcer_->removeAction(held);
  return true;
}

void ActionBin::addAction(boost::shared_ptr<const Media> media,
                          boost::shared_ptr<const Action> action) {
  if (!media || !action) {
    throw OrvException("unable to add action without a media and an action");
  }
  journalEdit(media, action);
  const auto found = actions_.find(media);
  ActionList::size_type index = 0;
  if (found != actions_.end()) {
    const ActionList& list = found->second;
    const Range<long long> range = action->timeRange();
    for (const auto& held : list) {
      if (actionsOverlap(held->timeRange(), range)) {
        throw OrvException("unable to add action, it collides with another existing action");
      }
    }
    index = static_cast<ActionList::size_type>(std::distance(
        list.begin(), std::find_if(list.begin(), list.end(), [&range](const auto& held) {
          return held->timeRange().start > range.start;
        })));
  }
  insertAt(media, index, action);
  notifyMedia(media);
}

void ActionBin::removeAction(boost::shared_ptr<const Action> action) {
  const auto held = action ? mediaOfAction_.find(action.get()) : mediaOfAction_.end();
  if (held == mediaOfAction_.end()) {
    throw OrvException("attempting to remove an action that isn't in the action bin");
  }
  const boost::shared_ptr<const Media> media = held->second;
  journalEdit(media, action);
  ActionList& list = actions_.find(media)->second;
  list.erase(std::find(list.begin(), list.end(), action));
  // Observers hear of it while the media's entry is still there.
  notifyMedia(media);
  const auto emptied = actions_.find(media);
  if (emptied != actions_.end() && emptied->second.empty()) {
    actions_.erase(emptied);
  }
  mediaOfAction_.erase(action.get());
  enforcer_->removeAction(action);
}

void ActionBin::removeMedia(boost::shared_ptr<const Media> media) {
  const auto found = actions_.find(media);
  if (found == actions_.end()) {
    throw OrvException("attempting to remove a media that isn't in the action bin");
  }
  for (const auto& action : found->second) {
    journalEdit(media, action);
  }
  enforcer_->removeMedia(media);
  for (const auto& action : found->second) {
    mediaOfAction_.erase(action.get());
  }
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
  return mediaOfAction_.count(action.get()) != 0;
}

boost::shared_ptr<ActionList> ActionBin::mediasActions(boost::shared_ptr<const Media> media) const {
  return mediasActions(media.get());
}

boost::shared_ptr<ActionList> ActionBin::mediasActions(const Media* media) const {
  const auto found = actions_.find(media);
  return found == actions_.end() ? boost::make_shared<ActionList>()
                                 : boost::make_shared<ActionList>(found->second);
}

const ActionList* ActionBin::heldActions(const Media* media) const {
  const auto found = actions_.find(media);
  return found == actions_.end() ? nullptr : &found->second;
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
  // In the order in which the document named the media, so that the text
  // doesn't depend on where the media lie in memory. Inside a project
  // document (the bin isn't the first thing it names) only media the
  // document wrote can be named: the actions of an audio transition, which
  // has no element, or of a media off the timeline are left out, and the
  // file stays readable. A bin written alone writes all its media, in the
  // order they were made.
  const bool alone = options.ident(*this) == 1;
  struct Entry {
    bool named;
    unsigned int order;
    const ActionMap::value_type* actions;
  };
  std::vector<Entry> entries;
  for (const auto& entry : actions_) {
    const KelMediaLib::Media& media = *entry.first;
    if (dynamic_cast<const KelMediaLib::AudioTransition*>(&media)) {
      continue;
    }
    const bool named = options.named(media);
    if (!named && !alone) {
      continue;
    }
    entries.push_back(Entry{named, named ? options.ident(media) : media.xmlIdent(), &entry});
  }
  std::sort(entries.begin(), entries.end(), [](const Entry& a, const Entry& b) {
    return a.named != b.named ? a.named : a.order < b.order;
  });
  for (const Entry& entry : entries) {
    KelMediaLib::writeIndent(options.out, depth);
    KelMediaLib::writeLiteral(options.out, "<MediasActions media=\"");
    KelMediaLib::writeXMLValue(options.out, options.ident(*entry.actions->first));
    KelMediaLib::writeLiteral(options.out, "\">\n");
    for (const auto& action : entry.actions->second) {
      action->toXML(options, depth + 1, std::string());
    }
    KelMediaLib::writeIndent(options.out, depth);
    KelMediaLib::writeLiteral(options.out, "</MediasActions>\n");
  }
}

}  // namespace OrvMediaLib
