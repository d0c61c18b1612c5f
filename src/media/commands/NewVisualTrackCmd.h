#pragma once

#include "media/commands/NewTrackCmd.h"

#include <boost/shared_ptr.hpp>

namespace KelMediaLib {

class VisualTrack;

/// Makes a new visual track in the visual mixer.
class NewVisualTrackCmd : public NewTrackCmd {
 public:
  explicit NewVisualTrackCmd(int index);
  static boost::shared_ptr<NewVisualTrackCmd> create(int index);

  NewVisualTrackCmd* clone() const override;

  /// The track that the first run made; null before it.
  boost::shared_ptr<const VisualTrack> visualTrack() const;

 protected:
  boost::shared_ptr<const Track> makeTrack(CommandHandler* handler) override;
};

}  // namespace KelMediaLib
