#pragma once

#include "media/commands/NamedCommand.h"

#include <boost/shared_ptr.hpp>

namespace KelMediaLib {

class Media;
class Track;

/// Puts a media that is on no track on a track, starting at `time` (timeline
/// units); undo takes it off again.
class AddMediaCmd : public NamedCommand {
 public:
  static boost::shared_ptr<AddMediaCmd> create(boost::shared_ptr<const Track> track,
                                               boost::shared_ptr<const Media> media,
                                               long long time);

  AddMediaCmd* clone() const override;
  bool execute(CommandHandler* handler) override;
  bool unexecute(CommandHandler* handler) override;

 private:
  AddMediaCmd(boost::shared_ptr<const Track> track, boost::shared_ptr<const Media> media,
              long long time);

  boost::shared_ptr<const Track> track_;
  boost::shared_ptr<const Media> media_;
  long long time_;
};

}  // namespace KelMediaLib
