#pragma once

#include "commands/OrvMultiCommand.h"

#include <boost/shared_ptr.hpp>

#include <string>

namespace KelMediaLib {
class CommandHandler;
class VMFile;
}  // namespace KelMediaLib

namespace ZoomdriftNS {
class Zoomdrift;
}

namespace OrvMediaLib {

class Action;
class ActionBin;

/// Puts a fresh automatic zoom in the place of an action: removes the action
/// and adds, by a `ZoomdriftAddActionAtTimeCmd`, a zoom over the same stretch
/// of the recording. Without a media whose screen metadata holds records it
/// does nothing at all, silently: there is nothing to zoom by.
class ReplaceActionWithZoomdriftAtTimeCmd : public OrvMultiCommand {
 public:
  /// Throws `OrvException` on a null action, engine or bin; the media may
  /// be null.
  static boost::shared_ptr<ReplaceActionWithZoomdriftAtTimeCmd> create(
      boost::shared_ptr<const Action> action, boost::shared_ptr<const KelMediaLib::VMFile> media,
      boost::shared_ptr<ZoomdriftNS::Zoomdrift> engine,
      boost::shared_ptr<const ActionBin> actionBin, int canvasWidth, int canvasHeight);

  /// The removal's and the zoom's failures pass through, with the action
  /// left in place.
  void executeCommands(KelMediaLib::CommandHandler const* handler) override;
  /// A copy that hasn't run; the caller owns it.
  ReplaceActionWithZoomdriftAtTimeCmd* clone() const;
  /// "ZoomdriftAddActionAtTimeCmd": the text of the command that does the
  /// work, which is what a history shows for it.
  std::string description() const;

 private:
  ReplaceActionWithZoomdriftAtTimeCmd(boost::shared_ptr<const Action> action,
                                      boost::shared_ptr<const KelMediaLib::VMFile> media,
                                      boost::shared_ptr<ZoomdriftNS::Zoomdrift> engine,
                                      boost::shared_ptr<const ActionBin> actionBin, int canvasWidth,
                                      int canvasHeight);
  ReplaceActionWithZoomdriftAtTimeCmd(const ReplaceActionWithZoomdriftAtTimeCmd& other) = default;

  boost::shared_ptr<const Action> action_;
  boost::shared_ptr<const KelMediaLib::VMFile> media_;
  boost::shared_ptr<ZoomdriftNS::Zoomdrift> engine_;
  boost::shared_ptr<const ActionBin> actionBin_;
  int canvasWidth_;
  int canvasHeight_;
};

}  // namespace OrvMediaLib
