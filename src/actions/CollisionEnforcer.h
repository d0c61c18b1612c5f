#pragma once

#include "actions/Action.h"

#include <boost/function.hpp>
#include <boost/shared_ptr.hpp>

#include <map>
#include <memory>
#include <utility>
#include <vector>

namespace KelMediaLib {
class Media;
class Observer;
}  // namespace KelMediaLib

namespace OrvMediaLib {

/// Watches the actions of a bin after they went in: when a watched action
/// notifies (its key frames moved), it is checked against what surrounds it
/// on its media, read through the surroundings function, and a collision
/// throws `OrvException` "CollisionEnforcer: collision" from inside that
/// notification. The change that caused it stays. Owned by its bin.
///
/// The actions of a media lie apart in the order of their starts, so a
/// change can only collide with the actions next to it: a check costs the
/// same however many actions the media has. An action may not pass over its
/// neighbour, and an action of no length may not land inside another.
class CollisionEnforcer {
 public:
  /// What a change of one action is checked against.
  struct Surroundings {
    bool held = false;               // false: the action isn't listed, nothing to check
    const Action* before = nullptr;  // the action listed just before it, if any
    const Action* after = nullptr;   // the action listed just after it, if any
    bool otherOfNoLength = false;    // another action of the media has no length
  };
  /// Answers the surroundings of an action of a media as they are now; called
  /// on every change of a watched action.
  typedef boost::function<Surroundings(const KelMediaLib::Media*, const Action&)>
      SurroundingsFunction;

  /// A new enforcer watching nothing; the caller owns it.
  static CollisionEnforcer* create(const SurroundingsFunction& surroundings);
  virtual ~CollisionEnforcer();
  CollisionEnforcer(const CollisionEnforcer&) = delete;
  CollisionEnforcer& operator=(const CollisionEnforcer&) = delete;

  /// The number of watched actions.
  unsigned int numActions() const;
  /// Watches `action`, an action of `media`. Watching an action again puts a
  /// new watch in its entry; the old one goes on watching until the enforcer
  /// ends. Throws `OrvException` on a null action.
  void addAction(boost::shared_ptr<const KelMediaLib::Media> media,
                 boost::shared_ptr<const Action> action);
  /// Stops watching `action`; throws `OrvException` if it isn't watched.
  void removeAction(boost::shared_ptr<const Action> action);
  /// Stops watching every action of `media`.
  void removeMedia(boost::shared_ptr<const KelMediaLib::Media> media);

 private:
  struct ByAddress {
    bool operator()(const boost::shared_ptr<const Action>& a,
                    const boost::shared_ptr<const Action>& b) const {
      return std::less<const Action*>()(a.get(), b.get());
    }
  };
  typedef std::map<boost::shared_ptr<const Action>,
                   std::pair<boost::shared_ptr<const KelMediaLib::Media>, KelMediaLib::Observer*>,
                   ByAddress>
      ActionMap;

  explicit CollisionEnforcer(const SurroundingsFunction& surroundings);
  static void release(const Action& action, KelMediaLib::Observer* subEnforcer);

  std::unique_ptr<ActionMap> actionMap_;
  SurroundingsFunction surroundings_;
  // Watches whose entry was overwritten: still attached, deleted at the end.
  std::vector<std::pair<boost::shared_ptr<const Action>, KelMediaLib::Observer*>> displaced_;
};

}  // namespace OrvMediaLib
