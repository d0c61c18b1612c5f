#pragma once

#include "actions/ActionDescription.h"
#include "commands/OrvMultiCommand.h"

#include <boost/shared_ptr.hpp>

#include <memory>

namespace KelMediaLib {
class CommandHandler;
class Media;
}  // namespace KelMediaLib

namespace OrvMediaLib {

class Action;
class MergeActionCmdCollisionStrategy;

/// Lays the ranges of a description over an existing action of `media`: each
/// described range is made over the action's stretch, then those that no
/// range of the action matches (same parameter object, same time range) are
/// added, and afterwards each matching one is handed to the collision
/// strategy. Undo and redo replay the members, so a replaced range comes back
/// as the same object.
class MergeActionCmd : public OrvMultiCommand {
 public:
  /// Copies the description and keeps a clone of `strategy`, so the caller's
  /// strategy may go at once. Throws `OrvException` on a null media or action.
  static boost::shared_ptr<MergeActionCmd> create(boost::shared_ptr<const KelMediaLib::Media> media,
                                                  const ActionDescription& description,
                                                  boost::shared_ptr<const Action> action,
                                                  MergeActionCmdCollisionStrategy& strategy);
  /// The same with the replacing strategy of `MergeActionCmdCollisionStrategy::create`.
  static boost::shared_ptr<MergeActionCmd> create(boost::shared_ptr<const KelMediaLib::Media> media,
                                                  const ActionDescription& description,
                                                  boost::shared_ptr<const Action> action);
  ~MergeActionCmd() override;

  /// Throws `OrvException` if a range description names no parameter of
  /// doubles of the media.
  void executeCommands(KelMediaLib::CommandHandler const* handler) override;

 private:
  MergeActionCmd(boost::shared_ptr<const KelMediaLib::Media> media,
                 const ActionDescription& description, boost::shared_ptr<const Action> action,
                 MergeActionCmdCollisionStrategy& strategy);

  boost::shared_ptr<const KelMediaLib::Media> media_;
  ActionDescription description_;
  boost::shared_ptr<const Action> action_;
  std::unique_ptr<MergeActionCmdCollisionStrategy> strategy_;
};

}  // namespace OrvMediaLib
