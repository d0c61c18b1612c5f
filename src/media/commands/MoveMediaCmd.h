#pragma once

#include "media/commands/NamedCommand.h"

#include <boost/shared_ptr.hpp>

namespace KelMediaLib {

class Media;
class Track;

/// Moves a media along its track by `delta` timeline units; undo moves it back.
class MoveMediaCmd : public NamedCommand {
 public:
  static boost::shared_ptr<MoveMediaCmd> create(boost::shared_ptr<const Track> track,
                                                boost::shared_ptr<const Media> media,
                                                long long delta);

  MoveMediaCmd* clone() const override;
  bool execute(CommandHandler* handler) override;
  bool unexecute(CommandHandler* handler) override;

 private:
  MoveMediaCmd(boost::shared_ptr<const Track> track, boost::shared_ptr<const Media> media,
               long long delta);

  boost::shared_ptr<const Track> track_;
  boost::shared_ptr<const Media> media_;
  long long delta_;
};

}  // namespace KelMediaLib
