#pragma once

#include "media/commands/NamedCommand.h"

#include <boost/shared_ptr.hpp>

namespace KelMediaLib {

class Media;
class Track;

/// Trims `delta` timeline units off the start of a media on a track (a
/// negative delta extends it); undo trims the opposite way, which gives back
/// the range, the source stretch and the sum of start trims from before.
class TrimStartCmd : public NamedCommand {
 public:
  static boost::shared_ptr<TrimStartCmd> create(boost::shared_ptr<const Track> track,
                                                boost::shared_ptr<const Media> media,
                                                long long delta);

  TrimStartCmd* clone() const override;
  bool execute(CommandHandler* handler) override;
  bool unexecute(CommandHandler* handler) override;

 private:
  TrimStartCmd(boost::shared_ptr<const Track> track, boost::shared_ptr<const Media> media,
               long long delta);

  boost::shared_ptr<const Track> track_;
  boost::shared_ptr<const Media> media_;
  long long delta_;
};

}  // namespace KelMediaLib
