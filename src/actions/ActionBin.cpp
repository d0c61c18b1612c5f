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
#include <stdexcept>
#include <tuple>
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

// Both ends included: two actions of one media that share an end point would
// leave no key frame time between them, and a point inside an action would
// break the order of starts that lookups rely on.
bool actionsMeet(const Range<long long>& a, const Range<long long>& b) {
  return a.start <= b.end() && b.start <= a.end();
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

// The actions of one media lie apart, so that sorted by start they are sorted
// by end too: a lookup by time is a binary search. They are kept in blocks of
// at most kMaxBlock, each found from an action by address, so that an
// insertion, a removal or an action's index costs about n / kMaxBlock +
// kMaxBlock steps instead of n, without a tree's memory per action.
class ActionBin::MediaActions {
 public:
  typedef boost::shared_ptr<const Action> ActionPtr;

  std::size_t size() const { return blockOf_.size(); }
  bool holds(const Action* action) const { return blockOf_.count(action) != 0; }
  // The held action at that address.
  const ActionPtr& find(const Action* action) const {
    const Block& block = *blockOf_.at(action);
    return block[offsetIn(block, action)];
  }

  std::size_t indexOf(const Action* action) const {
    const Block* block = blockOf_.at(action);
    std::size_t index = 0;
    for (auto each = blocks_.begin(); each != placeOf(block); ++each) {
      index += (*each)->size();
    }
    return index + offsetIn(*block, action);
  }

  void insert(std::size_t index, const ActionPtr& action) {
    if (blocks_.empty()) {
      blocks_.emplace_back(new Block());
    }
    auto block = blocks_.begin();
    while (index > (*block)->size() && std::next(block) != blocks_.end()) {
      index -= (*block)->size();
      ++block;
    }
    Block& into = **block;
    into.insert(into.begin() + static_cast<std::ptrdiff_t>(std::min(index, into.size())), action);
    blockOf_[action.get()] = &into;
    if (into.size() > kMaxBlock) {
      std::unique_ptr<Block> upper(new Block(into.begin() + kMaxBlock / 2, into.end()));
      into.erase(into.begin() + kMaxBlock / 2, into.end());
      for (const ActionPtr& moved : *upper) {
        blockOf_[moved.get()] = upper.get();
      }
      blocks_.insert(std::next(block), std::move(upper));
    }
  }

  void erase(const Action* action) {
    Block* block = blockOf_.at(action);
    block->erase(block->begin() + static_cast<std::ptrdiff_t>(offsetIn(*block, action)));
    blockOf_.erase(action);
    noLength_.erase(action);
    if (block->empty()) {
      blocks_.erase(placeOf(block));
    }
  }

  // The actions just before and after a held one, in the list.
  std::pair<const Action*, const Action*> neighbours(const Action* action) const {
    const Block* block = blockOf_.at(action);
    const std::size_t offset = offsetIn(*block, action);
    const auto at = placeOf(block);
    const Action* before = offset > 0              ? (*block)[offset - 1].get()
                           : at != blocks_.begin() ? (*std::prev(at))->back().get()
                                                   : nullptr;
    const Action* after = offset + 1 < block->size()       ? (*block)[offset + 1].get()
                          : std::next(at) != blocks_.end() ? (*std::next(at))->front().get()
                                                           : nullptr;
    return std::make_pair(before, after);
  }

  // Calls `visit` on each action from the first whose end is at or after
  // `time`, in order, until it returns false.
  template <class Visit>
  void visitFrom(long long time, const Visit& visit) const {
    const auto endsBefore = [time](const ActionPtr& action) {
      return action->timeRange().end() < time;
    };
    auto block = std::partition_point(blocks_.begin(), blocks_.end(),
                                      [&](const auto& each) { return endsBefore(each->back()); });
    if (block == blocks_.end()) {
      return;
    }
    auto action = std::partition_point((*block)->begin(), (*block)->end(), endsBefore);
    for (;;) {
      for (; action != (*block)->end(); ++action) {
        if (!visit(*action)) {
          return;
        }
      }
      if (++block == blocks_.end()) {
        return;
      }
      action = (*block)->begin();
    }
  }

  // The index an action starting at `start` goes to: after those that start
  // at or before it.
  std::size_t indexForStart(long long start) const {
    const auto startsBy = [start](const ActionPtr& action) {
      return action->timeRange().start <= start;
    };
    std::size_t index = 0;
    for (const auto& block : blocks_) {
      if (!startsBy(block->back())) {
        return index +
               static_cast<std::size_t>(
                   std::partition_point(block->begin(), block->end(), startsBy) - block->begin());
      }
      index += block->size();
    }
    return index;
  }

  template <class Visit>
  void visitAll(const Visit& visit) const {
    for (const auto& block : blocks_) {
      for (const ActionPtr& action : *block) {
        if (!visit(action)) {
          return;
        }
      }
    }
  }

  const ActionPtr& at(std::size_t index) const {
    for (const auto& block : blocks_) {
      if (index < block->size()) {
        return (*block)[index];
      }
      index -= block->size();
    }
    throw std::out_of_range("no action at that index");
  }

  ActionList list() const {
    ActionList copy;
    visitAll([&copy](const ActionPtr& action) {
      copy.push_back(action);
      return true;
    });
    return copy;
  }

  bool hasNoLength(const Action* action) const { return noLength_.count(action) != 0; }
  void setNoLength(const Action* action, bool noLength) {
    if (noLength) {
      noLength_.insert(action);
    } else {
      noLength_.erase(action);
    }
  }
  bool anyOtherOfNoLength(const Action* action) const {
    return noLength_.size() > (hasNoLength(action) ? 1u : 0u);
  }

 private:
  typedef std::vector<ActionPtr> Block;
  static const std::size_t kMaxBlock = 128;

  std::vector<std::unique_ptr<Block>>::const_iterator placeOf(const Block* block) const {
    return std::find_if(blocks_.begin(), blocks_.end(),
                        [block](const auto& each) { return each.get() == block; });
  }

  static std::size_t offsetIn(const Block& block, const Action* action) {
    return static_cast<std::size_t>(
        std::find_if(block.begin(), block.end(),
                     [action](const ActionPtr& held) { return held.get() == action; }) -
        block.begin());
  }

  std::vector<std::unique_ptr<Block>> blocks_;
  std::unordered_map<const Action*, Block*> blockOf_;
  // The actions that had no length when last seen: any change of another
  // action of the media collides while one is here. Kept in the journal,
  // since undo gives lengths back without telling anyone.
  std::unordered_set<const Action*> noLength_;
};

boost::shared_ptr<ActionBin> ActionBin::create() {
  return boost::shared_ptr<ActionBin>(new ActionBin());
}

// The enforcer and its watches die with the bin, so they may hold it by address.
ActionBin::ActionBin()
    : enforcer_(CollisionEnforcer::create([this](const Media* media, const Action& action) {
        return surroundings(media, action);
      })) {}

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
    std::size_t index = 0;
    bool noLength = false;
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
      const MediaActions& list = *bin->actions_.find(media->second)->second;
      at.media = media->second;
      at.index = list.indexOf(action.get());
      at.noLength = list.hasNoLength(action.get());
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
    const MediaActions& list = *bin->actions_.find(at.media)->second;
    std::size_t index = at.index;
    std::vector<std::size_t> earlier;
    for (const Frame& frame : frames_) {
      if (list.holds(frame.action.get()) && list.indexOf(frame.action.get()) < at.index) {
        --index;
      }
      if (frame.before.media == at.media) {
        earlier.push_back(frame.before.index);
      }
    }
    std::sort(earlier.begin(), earlier.end());
    for (const std::size_t taken : earlier) {
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
      const Place& to = frame->*which;
      bin->insertAt(to.media, to.index, frame->action, to.noLength);
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

void ActionBin::insertAt(const boost::shared_ptr<const Media>& media, std::size_t index,
                         const boost::shared_ptr<const Action>& action, bool noLength) {
  std::unique_ptr<MediaActions>& list = actions_[media];
  if (!list) {
    list.reset(new MediaActions());
  }
  list->insert(index, action);
  list->setNoLength(action.get(), noLength);
  mediaOfAction_[action.get()] = media;
  enforcer_->addAction(media, action);
}

bool ActionBin::takeOut(const boost::shared_ptr<const Media>& media, const Action* action) {
  const auto entry = actions_.find(media);
  if (entry == actions_.end() || !entry->second->holds(action)) {
    return false;
  }
  const boost::shared_ptr<const Action> held = entry->second->find(action);
  entry->second->erase(action);
  if (entry->second->size() == 0) {
    actions_.erase(entry);
  }
  mediaOfAction_.erase(action);
  enforcer_->removeAction(held);
  return true;
}

CollisionEnforcer::Surroundings ActionBin::surroundings(const Media* media, const Action& action) {
  CollisionEnforcer::Surroundings around;
  const auto entry = actions_.find(media);
  if (entry == actions_.end() || !entry->second->holds(&action)) {
    return around;
  }
  MediaActions& list = *entry->second;
  const bool noLength = action.timeRange().duration == 0;
  if (noLength != list.hasNoLength(&action)) {
    const auto held = mediaOfAction_.find(&action);
    journalEdit(held->second, list.find(&action));
    list.setNoLength(&action, noLength);
  }
  around.held = true;
  std::tie(around.before, around.after) = list.neighbours(&action);
  around.otherOfNoLength = list.anyOtherOfNoLength(&action);
  return around;
}

void ActionBin::addAction(boost::shared_ptr<const Media> media,
                          boost::shared_ptr<const Action> action) {
  if (!media || !action) {
    throw OrvException("unable to add action without a media and an action");
  }
  const Range<long long> range = action->timeRange();
  std::size_t index = 0;
  const auto found = actions_.find(media);
  if (found != actions_.end()) {
    // Apart and in order, the list can only meet the new action at the
    // neighbours of its place.
    const MediaActions& list = *found->second;
    index = list.indexForStart(range.start);
    if ((index > 0 && actionsMeet(list.at(index - 1)->timeRange(), range)) ||
        (index < list.size() && actionsMeet(list.at(index)->timeRange(), range))) {
      throw OrvException("unable to add action, it collides with another existing action");
    }
  }
  journalEdit(media, action);
  insertAt(media, index, action, range.duration == 0);
  notifyMedia(media);
}

void ActionBin::removeAction(boost::shared_ptr<const Action> action) {
  const auto held = action ? mediaOfAction_.find(action.get()) : mediaOfAction_.end();
  if (held == mediaOfAction_.end()) {
    throw OrvException("attempting to remove an action that isn't in the action bin");
  }
  const boost::shared_ptr<const Media> media = held->second;
  journalEdit(media, action);
  const auto entry = actions_.find(media);
  entry->second->erase(action.get());
  // Observers hear of it while the media's entry is still there.
  notifyMedia(media);
  const auto emptied = actions_.find(media);
  if (emptied != actions_.end() && emptied->second->size() == 0) {
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
  std::vector<boost::shared_ptr<const Action>> gone;
  found->second->visitAll([&gone](const boost::shared_ptr<const Action>& action) {
    gone.push_back(action);
    return true;
  });
  for (const auto& action : gone) {
    journalEdit(media, action);
  }
  for (const auto& action : gone) {
    enforcer_->removeAction(action);
    mediaOfAction_.erase(action.get());
  }
  actions_.erase(found);
  notifyMedia(media);
}

bool ActionBin::hasMedia(boost::shared_ptr<const Media> media) const {
  return actions_.count(media) != 0;
}

unsigned int ActionBin::numActions() const {
  return static_cast<unsigned int>(mediaOfAction_.size());
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
                                 : boost::make_shared<ActionList>(found->second->list());
}

std::vector<boost::shared_ptr<const Action>> ActionBin::actionsMeeting(
    const Media* media, const Range<long long>& range) const {
  std::vector<boost::shared_ptr<const Action>> meeting;
  const auto found = actions_.find(media);
  if (found != actions_.end()) {
    found->second->visitFrom(range.start, [&](const boost::shared_ptr<const Action>& action) {
      const bool starts = action->timeRange().start <= range.end();
      if (starts) {
        meeting.push_back(action);
      }
      return starts;
    });
  }
  return meeting;
}

bool ActionBin::anyAction(const Media* media,
                          const std::function<bool(const Action&)>& test) const {
  bool any = false;
  const auto found = actions_.find(media);
  if (found != actions_.end()) {
    found->second->visitAll([&](const boost::shared_ptr<const Action>& action) {
      any = test(*action);
      return !any;
    });
  }
  return any;
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
                                 : boost::make_shared<ActionList>(found->second->list());
}

boost::shared_ptr<const Action> ActionBin::firstHolding(ActionMap::const_iterator entry,
                                                        long long time) const {
  boost::shared_ptr<const Action> holding;
  if (entry != actions_.end()) {
    // The first action that ends at or after the time is the only one that
    // may hold it first.
    entry->second->visitFrom(time, [&](const boost::shared_ptr<const Action>& action) {
      if (action->timeRange().start <= time) {
        holding = action;
      }
      return false;
    });
  }
  return holding;
}

boost::shared_ptr<const Action> ActionBin::actionForMediaContainingTime(
    boost::shared_ptr<const Media> media, long long time) const {
  return firstHolding(actions_.find(media), time);
}

Range<long long> ActionBin::actionRangeForMediaContainingTime(boost::shared_ptr<const Media> media,
                                                              long long time) const {
  const boost::shared_ptr<const Action> action = actionForMediaContainingTime(media, time);
  return action ? action->timeRange() : Range<long long>(0, 0);
}

boost::shared_ptr<const Action> ActionBin::actionForParametricContainingTime(
    boost::shared_ptr<const Parametric> parametric, long long time) const {
  return firstHolding(findParametric(parametric.get()), time);
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
    entry.actions->second->visitAll([&](const boost::shared_ptr<const Action>& action) {
      action->toXML(options, depth + 1, std::string());
      return true;
    });
    KelMediaLib::writeIndent(options.out, depth);
    KelMediaLib::writeLiteral(options.out, "</MediasActions>\n");
  }
}

}  // namespace OrvMediaLib
