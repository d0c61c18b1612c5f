#include "media/project/ClipBoard.h"

#include "core/KelMediaLibException.h"
#include "core/ReadWriteMutex.h"
#include "core/ThreadSafe.h"
#include "media/media/Media.h"

#include <memory>

namespace KelMediaLib {

namespace {

// Holds the read lock of the project while it lives, if the project does.
class ModelRead {
 public:
  explicit ModelRead(const boost::weak_ptr<const ThreadSafe>& project) : project_(project.lock()) {
    if (project_) lock_.reset(new ReadWriteMutex::ScopedReadLock(project_->mutex()));
  }

 private:
  boost::shared_ptr<const ThreadSafe> project_;
  std::unique_ptr<ReadWriteMutex::ScopedReadLock> lock_;
};

}  // namespace

ClipBoard::ClipBoard(boost::weak_ptr<const ThreadSafe> project) : project_(std::move(project)) {}

boost::shared_ptr<ClipBoard> ClipBoard::create(boost::weak_ptr<const ThreadSafe> project) {
  return boost::shared_ptr<ClipBoard>(new ClipBoard(std::move(project)));
}

void ClipBoard::copy(const std::vector<boost::shared_ptr<const Media>>& medias) {
  const ModelRead read(project_);
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
  const ModelRead read(project_);
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
