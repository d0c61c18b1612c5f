#pragma once

#include "core/MultiCommand.h"

#include <boost/shared_ptr.hpp>

namespace KelMediaLib {

class Track;

/// Takes a track out of its mixer: first each of its media off it (linked
/// media on other tracks stay), then the track itself. Undo puts the track
/// back at its index and its media back where they stood.
class RemoveTrackCmd : public MultiCommand {
 public:
  static boost::shared_ptr<RemoveTrackCmd> create(boost::shared_ptr<const Track> track);

  std::string description() const override;
  RemoveTrackCmd* clone() const override;
  void executeCommands(CommandHandler const* handler) override;
  void xmlName(Options& options) const override;

 private:
  explicit RemoveTrackCmd(boost::shared_ptr<const Track> track);

  boost::shared_ptr<const Track> track_;
};

}  // namespace KelMediaLib
