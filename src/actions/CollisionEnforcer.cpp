#include "actions/CollisionEnforcer.h"

#include "actions/OrvException.h"
#include "core/Observer.h"
#include "media/media/Media.h"

namespace OrvMediaLib {

using KelMediaLib::Media;
using KelMediaLib::Observer;
using KelMediaLib::Range;

namespace {

// Narrower than the bin's test on insertion in one direction and wider in
// another, by design: a move that makes an action's end meet the start of the
// other collides, one that makes its start meet the other's end doesn't.
void checkCollision(const Action& other, const Action& own) {
  const Range<long long> theirs = other.timeRange();
  const Range<long long> mine = own.timeRange();
  if (theirs.intersection(mine).duration > 0 || theirs.end() == theirs.start ||
      mine.end() == theirs.start) {
    throw OrvException("CollisionEnforcer: collision");
  }
}

// The order of the starts is what lets the neighbours alone decide; a change
// that would break it (a jump over the neighbour, or a point inside it) is a
// collision too. Any change collides while the media holds an action of no
// length.
void checkSurroundings(const CollisionEnforcer::Surroundings& around, const Action& own) {
  if (!around.held) {
    return;
  }
  const Range<long long> mine = own.timeRange();
  bool collides = around.otherOfNoLength;
  if (around.before) {
    const Range<long long> theirs = around.before->timeRange();
    collides =
        collides || theirs.start >= mine.start || (mine.duration == 0 && theirs.end() > mine.start);
  }
  if (around.after) {
    collides = collides || around.after->timeRange().start <= mine.start;
  }
  if (collides) {
    throw OrvException("CollisionEnforcer: collision");
  }
  if (around.before) {
    checkCollision(*around.before, own);
  }
  if (around.after) {
    checkCollision(*around.after, own);
  }
}

// Watches one action: each notification of it checks it against what
// surrounds it on its media.
class SubEnforcer : public Observer {
 public:
  SubEnforcer(const CollisionEnforcer::SurroundingsFunction& surroundings,
              boost::shared_ptr<const Media> media, boost::shared_ptr<const Action> action)
      : surroundings_(surroundings), media_(media), action_(action) {}

  void observerUpdate() override {
    checkSurroundings(surroundings_(media_.get(), *action_), *action_);
  }

 private:
  CollisionEnforcer::SurroundingsFunction surroundings_;
  boost::shared_ptr<const Media> media_;
  boost::shared_ptr<const Action> action_;
};

}  // namespace

CollisionEnforcer* CollisionEnforcer::create(const SurroundingsFunction& surroundings) {
  return new CollisionEnforcer(surroundings);
}

CollisionEnforcer::CollisionEnforcer(const SurroundingsFunction& surroundings)
    : actionMap_(new ActionMap()), surroundings_(surroundings) {}

CollisionEnforcer::~CollisionEnforcer() {
  for (const auto& entry : *actionMap_) {
    release(*entry.first, entry.second.second);
  }
  for (const auto& entry : displaced_) {
    release(*entry.first, entry.second);
  }
}

void CollisionEnforcer::release(const Action& action, Observer* subEnforcer) {
  action.detach(subEnforcer);
  delete subEnforcer;
}

unsigned int CollisionEnforcer::numActions() const {
  return static_cast<unsigned int>(actionMap_->size());
}

void CollisionEnforcer::addAction(boost::shared_ptr<const Media> media,
                                  boost::shared_ptr<const Action> action) {
  if (!action) {
    throw OrvException("unable to watch a null action");
  }
  std::unique_ptr<Observer> watch(new SubEnforcer(surroundings_, media, action));
  displaced_.reserve(displaced_.size() + 1);
  action->attach(watch.get());
  auto& entry = (*actionMap_)[action];
  if (entry.second) {
    displaced_.emplace_back(action, entry.second);
  }
  entry = std::make_pair(media, watch.release());
}

void CollisionEnforcer::removeAction(boost::shared_ptr<const Action> action) {
  const auto found = actionMap_->find(action);
  if (found == actionMap_->end()) {
    throw OrvException("removing non existant action.");
  }
  release(*action, found->second.second);
  actionMap_->erase(found);
}

void CollisionEnforcer::removeMedia(boost::shared_ptr<const Media> media) {
  for (auto it = actionMap_->begin(); it != actionMap_->end();) {
    if (it->second.first.get() == media.get()) {
      release(*it->first, it->second.second);
      it = actionMap_->erase(it);
    } else {
      ++it;
    }
  }
}

}  // namespace OrvMediaLib
