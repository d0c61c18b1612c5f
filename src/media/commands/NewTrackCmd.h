#pragma once

#include "media/commands/NamedCommand.h"

#include <boost/shared_ptr.hpp>

namespace KelMediaLib {

class Mixer;
class Track;

/// Base of the commands that make a new track in a mixer at an index (-1 or
/// past the end: behind the others). Undo takes the track out; redo puts the
/// same track back at the index it had.
class NewTrackCmd : public NamedCommand {
 public:
  bool execute(CommandHandler* handler) override;
  bool unexecute(CommandHandler* handler) override;
  bool reexecute(CommandHandler* handler) override;

  /// The track that the first run made; null before it.
  boost::shared_ptr<const Track> track() const { return track_; }

 protected:
  NewTrackCmd(const char* name, int index);

  int index() const { return index_; }
  /// Makes the track through the handler, in the mixer of the subclass's kind.
  virtual boost::shared_ptr<const Track> makeTrack(CommandHandler* handler) = 0;

 private:
  int index_;
  boost::shared_ptr<const Track> track_;
  boost::shared_ptr<const Mixer> mixer_;
  int placed_;
};

}  // namespace KelMediaLib
