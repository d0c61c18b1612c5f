#pragma once

#include "commands/OrvMultiCommand.h"
#include "zoomdrift/Params.h"

#include <boost/shared_ptr.hpp>

#include <memory>
#include <string>
#include <vector>

namespace KelMediaLib {
class CommandHandler;
class VMFile;
}  // namespace KelMediaLib

namespace OrvMediaLib {

class ActionBin;

/// Zoom actions from key frames that the caller already has (an engine's
/// earlier answer, or the user's own), one for each as
/// `ZoomdriftAddActionsCmd` makes them. The first run hands the key frames
/// on: a command runs them once.
class ZoomdriftAddActionsWithKeyFramesCmd : public OrvMultiCommand {
 public:
  typedef std::unique_ptr<std::vector<ZoomdriftNS::ZD_TIME_RECT>> KeyFrames;

  /// Takes the key frames (recording times; null for none). Throws
  /// `OrvException` on a null media or bin.
  static boost::shared_ptr<ZoomdriftAddActionsWithKeyFramesCmd> create(
      boost::shared_ptr<const KelMediaLib::VMFile> media, KeyFrames keyFrames,
      long long fadeDuration, boost::shared_ptr<const ActionBin> actionBin, int canvasWidth,
      int canvasHeight);

  /// Throws `KelMediaLibException` for a media without screen metadata;
  /// refusals of the actions pass through, with nothing added.
  void executeCommands(KelMediaLib::CommandHandler const* handler) override;
  /// A copy that hasn't run, with a copy of the key frames that this command
  /// still holds; the caller owns it.
  ZoomdriftAddActionsWithKeyFramesCmd* clone() const;
  /// "ZoomdriftAddActionsWithKeyFramesCmd".
  std::string description() const;

 private:
  ZoomdriftAddActionsWithKeyFramesCmd(boost::shared_ptr<const KelMediaLib::VMFile> media,
                                      KeyFrames keyFrames, long long fadeDuration,
                                      boost::shared_ptr<const ActionBin> actionBin, int canvasWidth,
                                      int canvasHeight);
  ZoomdriftAddActionsWithKeyFramesCmd(const ZoomdriftAddActionsWithKeyFramesCmd& other);

  boost::shared_ptr<const KelMediaLib::VMFile> media_;
  KeyFrames keyFrames_;
  long long fadeDuration_;
  boost::shared_ptr<const ActionBin> actionBin_;
  int canvasWidth_;
  int canvasHeight_;
};

}  // namespace OrvMediaLib
