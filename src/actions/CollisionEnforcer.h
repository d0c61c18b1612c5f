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
/// notifies (its key frames moved), its media's current actions are read
/// through the list function and a collision throws `OrvException`
/// "CollisionEnforcer: collision" from inside that notification. The change
/// that caused it stays. Owned by its bin.
class CollisionEnforcer {
 public:
  /// How the current actions of a media are read: the list itself, not a
  /// copy (a check runs on every change of a watched action); null if the
  /// media has none.
  typedef boost::function<const ActionList*(const KelMediaLib::Media*)> MediasActionsFunction;

  /// A new enforcer watching nothing; the caller owns it.
  static CollisionEnforcer* create(const MediasActionsFunction& mediasActions);
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

  explicit CollisionEnforcer(const MediasActionsFunction& mediasActions);
  static void release(const Action& action, KelMediaLib::Observer* subEnforcer);

  std::unique_ptr<ActionMap> actionMap_;
  MediasActionsFunction mediasActionsFunction_;
  // Watches whose entry was overwritten: still attached, deleted at the end.
  std::vector<std::pair<boost::shared_ptr<const Action>, KelMediaLib::Observer*>> displaced_;
};

}  // namespace OrvMediaLib
