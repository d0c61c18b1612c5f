#pragma once

#include "actions/Action.h"
#include "actions/CollisionEnforcer.h"
#include "core/KelObject.h"
#include "core/Subject.h"
#include "core/XMLIdentified.h"
#include "core/XMLable.h"
#include "values/Range.h"

#include <boost/enable_shared_from_this.hpp>
#include <boost/shared_ptr.hpp>

#include <cstddef>
#include <functional>
#include <map>
#include <unordered_map>
#include <memory>
#include <utility>
#include <vector>

namespace KelMediaLib {
class Media;
class Observer;
class Parametric;
}  // namespace KelMediaLib

namespace OrvMediaLib {

/// Holds actions by media: for each media a list sorted by start. Refuses an
/// action that shares a time with another of its media (touching at an end,
/// or a point inside another, counts), watches the held actions for later
/// collisions, which keeps them apart and in order, and tells the observers
/// of a media (see `mediaAttach`) when that media's list changes. Lookups by
/// time and edits cost about the same however many actions a media has.
///
/// Owns its lists, which keep media and actions alive. When the bin ends it
/// deletes the clone decorator of each media it holds. Written as
/// `<ActionBin>` with a `<MediasActions media="ident">` per media.
///
/// A time lies in an action when `start <= time <= start + duration`: both
/// ends included, so the very end of an action still belongs to it.
class ActionBin : public KelMediaLib::KelObject,
                  public KelMediaLib::Subject,
                  public KelMediaLib::XMLable,
                  public virtual KelMediaLib::XMLIdentified,
                  public boost::enable_shared_from_this<ActionBin> {
 public:
  /// A new empty bin.
  static boost::shared_ptr<ActionBin> create();
  ~ActionBin() override;
  ActionBin(const ActionBin&) = delete;
  ActionBin& operator=(const ActionBin&) = delete;

  /// Puts `action` in `media`'s list by start (after those with an equal
  /// start) and watches it. Throws `OrvException` if it overlaps or touches
  /// an action of the list, leaving the bin unchanged.
  void addAction(boost::shared_ptr<const KelMediaLib::Media> media,
                 boost::shared_ptr<const Action> action);
  /// Takes `action` out; a media whose list empties loses its entry. Throws
  /// `OrvException` if the bin doesn't hold it.
  void removeAction(boost::shared_ptr<const Action> action);
  /// Drops the media's entry with all its actions. Throws `OrvException` if
  /// it has none.
  void removeMedia(boost::shared_ptr<const KelMediaLib::Media> media);

  /// Whether the media has at least one action here.
  bool hasMedia(boost::shared_ptr<const KelMediaLib::Media> media) const;
  /// The number of actions of all media.
  unsigned int numActions() const;
  /// Whether that very action is held, for any media.
  bool containsAction(boost::shared_ptr<const Action> action) const;
  /// A new list, the caller's, with the media's actions in order; empty if
  /// it has none. Never null.
  boost::shared_ptr<ActionList> mediasActions(
      boost::shared_ptr<const KelMediaLib::Media> media) const;
  /// The same for a media known by address.
  boost::shared_ptr<ActionList> mediasActions(const KelMediaLib::Media* media) const;
  /// The media's actions that share a time with `range`, both ends
  /// included, in order: found by time, without a scan of the media's list.
  std::vector<boost::shared_ptr<const Action>> actionsMeeting(
      const KelMediaLib::Media* media, const KelMediaLib::Range<long long>& range) const;
  /// Whether `test` holds for one of the media's actions, tried in order.
  bool anyAction(const KelMediaLib::Media* media,
                 const std::function<bool(const Action&)>& test) const;
  /// The actions of `parametric` if it is a media with actions here, else
  /// those of the first media (in the bin's order) that holds it as an
  /// effect, whatever the actions animate; null if there is no such media.
  boost::shared_ptr<ActionList> parametricsActions(
      boost::shared_ptr<const KelMediaLib::Parametric> parametric) const;
  /// The first action of the media, in list order, that holds `time`; null
  /// if none.
  boost::shared_ptr<const Action> actionForMediaContainingTime(
      boost::shared_ptr<const KelMediaLib::Media> media, long long time) const;
  /// The time range of that action; (0, 0) if there is none.
  KelMediaLib::Range<long long> actionRangeForMediaContainingTime(
      boost::shared_ptr<const KelMediaLib::Media> media, long long time) const;
  /// Like `actionForMediaContainingTime` for a media with actions here;
  /// for an effect, the first media that holds it alone decides. Null if
  /// nothing holds `time`.
  boost::shared_ptr<const Action> actionForParametricContainingTime(
      boost::shared_ptr<const KelMediaLib::Parametric> parametric, long long time) const;

  /// Has `observer` told of every change of the media's list. The observer
  /// stays the caller's.
  void mediaAttach(KelMediaLib::Observer* observer,
                   boost::shared_ptr<const KelMediaLib::Media> media) const;
  /// Stops telling `observer` of any media.
  void mediaDetach(KelMediaLib::Observer* observer) const;

  /// The journal entry of a bin: where each action an edit added or removed
  /// stood (its media and its place in the list), before and after. A bin of
  /// many actions costs an edit only the actions it touched.
  class JournalEntry;

  void xmlName(Options& options) const override;
  /// `id=".."`: the file requires one on every bin though no reader uses it;
  /// the bin's name comes as the extra attributes of `toXML`.
  void xmlAttributes(Options& options) const override;
  void xmlBody(Options& options, int depth) const override;

 private:
  // Orders media by address, and finds them by a raw pointer as well.
  struct ByAddress {
    typedef void is_transparent;
    static const KelMediaLib::Media* address(const boost::shared_ptr<const KelMediaLib::Media>& m) {
      return m.get();
    }
    static const KelMediaLib::Media* address(const KelMediaLib::Media* m) { return m; }
    template <class A, class B>
    bool operator()(const A& a, const B& b) const {
      return std::less<const KelMediaLib::Media*>()(address(a), address(b));
    }
  };
  // The actions of one media, in order, with what finds them fast.
  class MediaActions;
  typedef std::map<boost::shared_ptr<const KelMediaLib::Media>, std::unique_ptr<MediaActions>,
                   ByAddress>
      ActionMap;
  typedef std::map<boost::shared_ptr<const KelMediaLib::Media>,
                   boost::shared_ptr<KelMediaLib::Subject>, ByAddress>
      SubjectMap;

  ActionBin();
  void notifyMedia(const boost::shared_ptr<const KelMediaLib::Media>& media) const;
  /// Notes `action` of `media` in the open journal before a change of its place.
  void journalEdit(const boost::shared_ptr<const KelMediaLib::Media>& media,
                   const boost::shared_ptr<const Action>& action);
  /// Puts `action` in the media's list at `index`, and watches it.
  void insertAt(const boost::shared_ptr<const KelMediaLib::Media>& media, std::size_t index,
                const boost::shared_ptr<const Action>& action, bool noLength);
  /// Takes `action` out of the media's list (which goes when it empties),
  /// and stops watching it; returns false if the list doesn't hold it.
  bool takeOut(const boost::shared_ptr<const KelMediaLib::Media>& media, const Action* action);
  /// The entry of the media that holds `parametric` (itself, or as an effect).
  ActionMap::const_iterator findParametric(const KelMediaLib::Parametric* parametric) const;
  /// The first action of the entry's media that holds `time`; null if none.
  boost::shared_ptr<const Action> firstHolding(ActionMap::const_iterator entry,
                                               long long time) const;
  /// What a change of `action` is checked against; notes whether it now has
  /// no length.
  CollisionEnforcer::Surroundings surroundings(const KelMediaLib::Media* media,
                                               const Action& action);

  ActionMap actions_;
  // The media of each held action.
  std::unordered_map<const Action*, boost::shared_ptr<const KelMediaLib::Media>> mediaOfAction_;
  mutable SubjectMap mediaSubjects_;
  std::unique_ptr<CollisionEnforcer> enforcer_;
};

}  // namespace OrvMediaLib
