#pragma once

#include <boost/enable_shared_from_this.hpp>
#include <boost/shared_ptr.hpp>
#include <boost/weak_ptr.hpp>

#include <list>
#include <utility>

namespace KelMediaLib {
class Media;
}

namespace OrvMediaLib {

class Action;
class ActionBin;

/// An action kept off the timeline with the bin it returns to.
typedef std::pair<boost::shared_ptr<const ActionBin>, boost::shared_ptr<const Action>> Zombie;

/// Keeps the actions of media that aren't on the timeline: of a removed
/// media that undo may bring back, and the clones of the actions of a cloned
/// media that hasn't reached a track yet. One entry per media, in order of
/// first arrival, each with its zombies in order of arrival.
///
/// Media are held weakly, actions and bins strongly. A media that has gone
/// can never come back, so its entry and the actions in it are let go at the
/// next change of the graveyard; a null media has no entry.
class ActionGraveyard : public boost::enable_shared_from_this<ActionGraveyard> {
 public:
  typedef std::list<Zombie> ZombieList;

  ActionGraveyard();
  virtual ~ActionGraveyard();
  ActionGraveyard(const ActionGraveyard&) = delete;
  ActionGraveyard& operator=(const ActionGraveyard&) = delete;

  /// The number of entries, expired ones included.
  unsigned int numMedias() const;
  /// Appends (bin, action) to the media's entry, making the entry if there is
  /// none. The same action may arrive twice.
  void addAction(boost::shared_ptr<const ActionBin> bin,
                 boost::shared_ptr<const KelMediaLib::Media> media,
                 boost::shared_ptr<const Action> action);
  /// A copy of the media's zombies; empty if it has no entry.
  ZombieList mediasZombies(boost::shared_ptr<const KelMediaLib::Media> media) const;
  /// Gives `clone`, a clone of `source`, a clone of each zombie of `source`,
  /// for the same bin. The zombies of `source` stay. Throws `OrvException`
  /// if an action can't be cloned; the clones made until then stay.
  void cloneMediasZombies(const KelMediaLib::Media* source,
                          boost::shared_ptr<const KelMediaLib::Media> clone);
  /// Drops the media's entry, if any.
  void remove(boost::shared_ptr<const KelMediaLib::Media> media);

 private:
  typedef std::pair<boost::weak_ptr<const KelMediaLib::Media>, ZombieList> Entry;

 public:
  /// The entries, for `EditJournal`.
  typedef std::list<Entry> JournalState;
  JournalState journalState() const { return zombies_; }
  void restoreJournalState(const JournalState& state) { zombies_ = state; }

 private:
  void journalEdit();
  void letGoOfMediaThatWent();

  std::list<Entry> zombies_;
};

}  // namespace OrvMediaLib
