#pragma once

#include "core/MultiCommand.h"

#include <boost/shared_ptr.hpp>

namespace KelMediaLib {

class Media;
class Track;

/// Splits a media on a track at a timeline time strictly inside it. The
/// media keeps the part before `time`; a clone of it (made by `cloneMedia`,
/// so the media's clone decorator runs) shows the part from `time` on:
///
///     before:  |aaaaaaaaaaaa|        after:  |aaaaa|aaaaaaa|
///              start   end                   media  clone
///                                                 ^ time
///
/// The clone's key frames stand at the same source times as the media's, so
/// each part animates as the whole did. Undo takes the clone off and gives the
/// media its range back; redo puts the same clone back.
class SplitMediaCmd : public MultiCommand {
 public:
  static boost::shared_ptr<SplitMediaCmd> create(boost::shared_ptr<const Track> track,
                                                 boost::shared_ptr<const Media> media,
                                                 long long time);

  std::string description() const override;
  SplitMediaCmd* clone() const override;
  void executeCommands(CommandHandler const* handler) override;
  void xmlName(Options& options) const override;

  /// The part from `time` on; null until the first execute.
  boost::shared_ptr<const Media> secondPart() const { return second_; }

 private:
  SplitMediaCmd(boost::shared_ptr<const Track> track, boost::shared_ptr<const Media> media,
                long long time);

  boost::shared_ptr<const Track> track_;
  boost::shared_ptr<const Media> media_;
  long long time_;
  boost::shared_ptr<const Media> second_;
};

}  // namespace KelMediaLib
