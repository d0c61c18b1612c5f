#pragma once

#include "media/commands/NewTrackCmd.h"

#include <boost/shared_ptr.hpp>

namespace KelMediaLib {

class VisualTrack;

/// Makes a new track for still media (images, text boxes, callouts) in the
/// visual mixer.
class NewImageTrackCmd : public NewTrackCmd {
 public:
  explicit NewImageTrackCmd(int index);
  static boost::shared_ptr<NewImageTrackCmd> create(int index);

  NewImageTrackCmd* clone() const override;

  /// The track that the first run made; null before it.
  boost::shared_ptr<const VisualTrack> visualTrack() const;

 protected:
  boost::shared_ptr<const Track> makeTrack(CommandHandler* handler) override;
};

}  // namespace KelMediaLib
