#pragma once

#include "media/commands/NamedCommand.h"

#include <boost/shared_ptr.hpp>

namespace KelMediaLib {

class Mixer;
class Track;

/// Swaps the places of two tracks of a mixer; undo swaps them back.
class SwapTracksCmd : public NamedCommand {
 public:
  static boost::shared_ptr<SwapTracksCmd> create(boost::shared_ptr<const Mixer> mixer,
                                                 boost::shared_ptr<const Track> first,
                                                 boost::shared_ptr<const Track> second);

  SwapTracksCmd* clone() const override;
  bool execute(CommandHandler* handler) override;
  bool unexecute(CommandHandler* handler) override;

 private:
  SwapTracksCmd(boost::shared_ptr<const Mixer> mixer, boost::shared_ptr<const Track> first,
                boost::shared_ptr<const Track> second);

  boost::shared_ptr<const Mixer> mixer_;
  boost::shared_ptr<const Track> first_;
  boost::shared_ptr<const Track> second_;
};

}  // namespace KelMediaLib
