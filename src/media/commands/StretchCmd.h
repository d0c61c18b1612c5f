#pragma once

#include "media/commands/NamedCommand.h"

#include <boost/shared_ptr.hpp>

namespace KelMediaLib {

class Media;
class Track;

/// Sets the speed scalar of a media on a track (length on the track over
/// length of the source stretch); the media keeps its start and its source
/// stretch, and its length on the track follows. Undo sets the scalar it had.
class StretchCmd : public NamedCommand {
 public:
  static boost::shared_ptr<StretchCmd> create(boost::shared_ptr<const Track> track,
                                              boost::shared_ptr<const Media> media, double scalar);

  StretchCmd* clone() const override;
  bool execute(CommandHandler* handler) override;
  bool unexecute(CommandHandler* handler) override;

 private:
  StretchCmd(boost::shared_ptr<const Track> track, boost::shared_ptr<const Media> media,
             double scalar);

  boost::shared_ptr<const Track> track_;
  boost::shared_ptr<const Media> media_;
  double scalar_;
  double previous_;
};

}  // namespace KelMediaLib
