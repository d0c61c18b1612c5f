#include "media/timeline/ImageTrack.h"

#include "media/media/Media.h"

namespace KelMediaLib {

boost::shared_ptr<ImageTrack> ImageTrack::create(boost::weak_ptr<const ThreadSafe> project) {
  return boost::shared_ptr<ImageTrack>(new ImageTrack(project));
}

ImageTrack::ImageTrack(boost::weak_ptr<const ThreadSafe> project) : VisualTrack(project) {}

bool ImageTrack::accepts(const Media& media) const {
  return VisualTrack::accepts(media) && media.isStill();
}

}  // namespace KelMediaLib
