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

/// One zoom action at a chosen time: over (`time`, `fadeDuration`) of the
/// media's own time, to the rectangle that the engine gives for the moment
/// the zoom has arrived, `time + fadeDuration`. An engine that can't answer
/// (a `ZoomdriftException`) has its text printed to standard output, and the
/// command stands as done with nothing added.
class ZoomdriftAddActionAtTimeCmd : public OrvMultiCommand {
 public:
  /// Throws `OrvException` on a null media, engine or bin.
  static boost::shared_ptr<ZoomdriftAddActionAtTimeCmd> create(
      boost::shared_ptr<const KelMediaLib::VMFile> media,
      boost::shared_ptr<ZoomdriftNS::Zoomdrift> engine, long long time, long long fadeDuration,
      boost::shared_ptr<const ActionBin> actionBin, int canvasWidth, int canvasHeight);

  /// Throws `KelMediaLibException` for a media without screen metadata;
  /// a refusal of the action passes through. An engine's answer without a
  /// key frame adds nothing.
  void executeCommands(KelMediaLib::CommandHandler const* handler) override;
  /// A copy that hasn't run; the caller owns it.
  ZoomdriftAddActionAtTimeCmd* clone() const;
  /// "ZoomdriftAddActionAtTimeCmd".
  std::string description() const;

 private:
  ZoomdriftAddActionAtTimeCmd(boost::shared_ptr<const KelMediaLib::VMFile> media,
                              boost::shared_ptr<ZoomdriftNS::Zoomdrift> engine, long long time,
                              long long fadeDuration, boost::shared_ptr<const ActionBin> actionBin,
                              int canvasWidth, int canvasHeight);
  ZoomdriftAddActionAtTimeCmd(const ZoomdriftAddActionAtTimeCmd& other) = default;

  boost::shared_ptr<const KelMediaLib::VMFile> media_;
  boost::shared_ptr<ZoomdriftNS::Zoomdrift> engine_;
  long long time_;
  long long fadeDuration_;
  boost::shared_ptr<const ActionBin> actionBin_;
  int canvasWidth_;
  int canvasHeight_;
};

}  // namespace OrvMediaLib
