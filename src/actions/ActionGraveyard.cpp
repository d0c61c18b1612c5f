#include "actions/ActionGraveyard.h"

#include "actions/Action.h"
#include "actions/OrvException.h"
#include "core/EditJournal.h"
#include "media/media/Media.h"

#include <algorithm>

namespace OrvMediaLib {

using KelMediaLib::Media;

namespace {

// An expired entry locks to null, so it matches a null media: that is how
// the zombies of a media that went can still be reached.
template <class Entry>
bool isFor(const Entry& entry, const Media* media) {
  return entry.first.lock().get() == media;
}

}  // namespace

ActionGraveyard::ActionGraveyard() = default;

ActionGraveyard::~ActionGraveyard() = default;

unsigned int ActionGraveyard::numMedias() const {
  return static_cast<unsigned int>(zombies_.size());
}

void ActionGraveyard::journalEdit() {
  if (KelMediaLib::EditJournal::current()) {
    KelMediaLib::EditJournal::note(weak_from_this().lock());
  }
}

void ActionGraveyard::letGoOfMediaThatWent() {
  zombies_.remove_if([](const Entry& entry) { return entry.first.expired(); });
}

void ActionGraveyard::addAction(boost::shared_ptr<const ActionBin> bin,
                                boost::shared_ptr<const Media> media,
                                boost::shared_ptr<const Action> action) {
  if (!media) {
    throw OrvException("the graveyard keeps actions of a media only");
  }
  journalEdit();
  letGoOfMediaThatWent();
  const auto found = std::find_if(zombies_.begin(), zombies_.end(), [&media](const Entry& entry) {
    return isFor(entry, media.get());
  });
  if (found != zombies_.end()) {
    found->second.emplace_back(bin, action);
  } else {
    zombies_.emplace_back(media, ZombieList(1, Zombie(bin, action)));
  }
}

ActionGraveyard::ZombieList ActionGraveyard::mediasZombies(
    boost::shared_ptr<const Media> media) const {
  const auto found = std::find_if(zombies_.begin(), zombies_.end(), [&media](const Entry& entry) {
    return isFor(entry, media.get());
  });
  return found == zombies_.end() ? ZombieList() : found->second;
}

void ActionGraveyard::cloneMediasZombies(const Media* source,
                                         boost::shared_ptr<const Media> clone) {
  boost::shared_ptr<const Media> sourceMedia;
  for (const auto& entry : zombies_) {
    if (isFor(entry, source)) {
      sourceMedia = entry.first.lock();
      break;
    }
  }
  // A copy: the clones below go into this same list of entries.
  const ZombieList zombies = mediasZombies(sourceMedia);
  for (const auto& zombie : zombies) {
    addAction(zombie.first, clone, zombie.second->createCloneAction(source, clone));
  }
}

void ActionGraveyard::remove(boost::shared_ptr<const Media> media) {
  journalEdit();
  letGoOfMediaThatWent();
  zombies_.remove_if([&media](const Entry& entry) { return isFor(entry, media.get()); });
}

}  // namespace OrvMediaLib
