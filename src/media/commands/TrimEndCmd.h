#pragma once

#include "media/commands/NamedCommand.h"

#include <boost/shared_ptr.hpp>

namespace KelMediaLib {

class Media;
class Track;

/// Trims `delta` timeline units off the end of a media on a track (a negative
/// delta extends it); undo trims the opposite way.
class TrimEndCmd : public NamedCommand {
 public:
  static boost::shared_ptr<TrimEndCmd> create(boost::shared_ptr<const Track> track,
                                              boost::shared_ptr<const Media> media,
                                              long long delta);

  TrimEndCmd* clone() const override;
  bool execute(CommandHandler* handler) override;
  bool unexecute(CommandHandler* handler) override;

 private:
  TrimEndCmd(boost::shared_ptr<const Track> track, boost::shared_ptr<const Media> media,
             long long delta);

  boost::shared_ptr<const Track> track_;
  boost::shared_ptr<const Media> media_;
  long long delta_;
};

}  // namespace KelMediaLib
