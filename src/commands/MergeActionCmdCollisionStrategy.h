#pragma once

#include <boost/shared_ptr.hpp>

namespace OrvMediaLib {

class Action;
class OrvMultiCommand;
class ParameterRange;

/// Decides what a `MergeActionCmd` does with a new range that collides with a
/// range of the action (same parameter, same time range).
class MergeActionCmdCollisionStrategy {
 public:
  /// The strategy of the system: the action's first range on a parameter of
  /// the new range's name is removed and the new range added. A new object,
  /// owned by the caller.
  static MergeActionCmdCollisionStrategy* create();

  virtual ~MergeActionCmdCollisionStrategy();
  /// A new strategy of the same kind, owned by the caller.
  virtual MergeActionCmdCollisionStrategy* clone() const = 0;
  /// Handles one colliding `range` of `action` by running commands as
  /// members of `group`; valid only while the group decides its members.
  virtual void execute(OrvMultiCommand* group, boost::shared_ptr<ParameterRange> range,
                       boost::shared_ptr<const Action> action) = 0;
};

}  // namespace OrvMediaLib
