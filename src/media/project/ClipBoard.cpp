#include "media/project/ClipBoard.h"

#include "core/KelMediaLibException.h"
#include "media/media/Media.h"

namespace KelMediaLib {

ClipBoard::ClipBoard() = default;

boost::shared_ptr<ClipBoard> ClipBoard::create() {
  return boost::shared_ptr<ClipBoard>(new ClipBoard());
}

void ClipBoard::copy(const std::vector<boost::shared_ptr<const Media>>& medias) {
  std::vector<boost::shared_ptr<const Media>> clones;
  clones.reserve(medias.size());
  for (const auto& media : medias) {
    if (!media) {
      throw KelMediaLibException("clip board: can't copy a null media");
    }
    clones.push_back(media->cloneMedia());
  }
  medias_.swap(clones);
}

std::vector<boost::shared_ptr<Media>> ClipBoard::paste() const {
  std::vector<boost::shared_ptr<Media>> clones;
  clones.reserve(medias_.size());
  for (const auto& media : medias_) {
    clones.push_back(media->cloneMedia());
  }
  return clones;
}

void ClipBoard::clear() {
  medias_.clear();
}

}  // namespace KelMediaLib
