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

class ActionBin;

/// Automatic zoom over a whole screen recording: the engine's key frames for
/// the media's metadata, each made a zoom action in `actionBin` (as a rule
/// the project's `zdActionBin`) by a member of this group, so that one undo
/// takes them all away and redo brings back the same actions.
class ZoomdriftAddActionsCmd : public OrvMultiCommand {
 public:
  /// `fadeDuration`: how long each zoom takes to arrive, edit time. The
  /// canvas size is the picture that a zoom rectangle fills. Throws
  /// `OrvException` on a null media, engine or bin.
  static boost::shared_ptr<ZoomdriftAddActionsCmd> create(
      boost::shared_ptr<const KelMediaLib::VMFile> media,
      boost::shared_ptr<ZoomdriftNS::Zoomdrift> engine, long long fadeDuration,
      boost::shared_ptr<const ActionBin> actionBin, int canvasWidth, int canvasHeight);

  /// Throws `KelMediaLibException` for a media without screen metadata;
  /// the engine's exception and the refusals of the actions pass through,
  /// with nothing added.
  void executeCommands(KelMediaLib::CommandHandler const* handler) override;
  /// A copy that hasn't run; the caller owns it.
  ZoomdriftAddActionsCmd* clone() const;
  /// "ZoomdriftAddActionsCmd".
  std::string description() const;

 private:
  ZoomdriftAddActionsCmd(boost::shared_ptr<const KelMediaLib::VMFile> media,
                         boost::shared_ptr<ZoomdriftNS::Zoomdrift> engine, long long fadeDuration,
                         boost::shared_ptr<const ActionBin> actionBin, int canvasWidth,
                         int canvasHeight);
  ZoomdriftAddActionsCmd(const ZoomdriftAddActionsCmd& other) = default;

  boost::shared_ptr<const KelMediaLib::VMFile> media_;
  boost::shared_ptr<ZoomdriftNS::Zoomdrift> engine_;
  long long fadeDuration_;
  boost::shared_ptr<const ActionBin> actionBin_;
  int canvasWidth_;
  int canvasHeight_;
};

}  // namespace OrvMediaLib
