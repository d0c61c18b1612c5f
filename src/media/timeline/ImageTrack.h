#pragma once

#include "media/timeline/VisualTrack.h"

namespace KelMediaLib {

/// A visual track for still media only (images, text boxes, callouts,
/// image transitions). Written like any visual track.
class ImageTrack : public VisualTrack {
 public:
  static boost::shared_ptr<ImageTrack> create(boost::weak_ptr<const ThreadSafe> project);

  bool accepts(const Media& media) const override;

 private:
  explicit ImageTrack(boost::weak_ptr<const ThreadSafe> project);
};

}  // namespace KelMediaLib
