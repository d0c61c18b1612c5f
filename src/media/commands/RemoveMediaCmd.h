#pragma once

#include "core/CommandHandler.h"
#include "media/commands/NamedCommand.h"

#include <boost/shared_ptr.hpp>

namespace KelMediaLib {

class Media;
class Track;

/// Takes a media off its track; undo puts it back where it stood.
class RemoveMediaCmd : public NamedCommand {
 public:
  /// Takes the media off and every media linked to it with it.
  static boost::shared_ptr<RemoveMediaCmd> create(boost::shared_ptr<const Track> track,
                                                  boost::shared_ptr<const Media> media);
  /// Takes this one media off; `time` must be its start on the track.
  static boost::shared_ptr<RemoveMediaCmd> create(boost::shared_ptr<const Track> track,
                                                  boost::shared_ptr<const Media> media,
                                                  long long time);

  RemoveMediaCmd* clone() const override;
  bool execute(CommandHandler* handler) override;
  bool unexecute(CommandHandler* handler) override;

  /// Where each media that the last run took off stood, the media itself first.
  const MediaPlacements& removed() const { return removed_; }

 private:
  RemoveMediaCmd(boost::shared_ptr<const Track> track, boost::shared_ptr<const Media> media,
                 bool withLinks, long long time);

  boost::shared_ptr<const Track> track_;
  boost::shared_ptr<const Media> media_;
  bool withLinks_;
  long long time_;
  MediaPlacements removed_;
};

}  // namespace KelMediaLib
