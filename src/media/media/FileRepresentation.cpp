#include "media/media/FileRepresentation.h"

#include "core/KelMediaLibException.h"
#include "media/sources/MediaFileStats.h"
#include "media/sources/Source.h"

#include <string>

namespace KelMediaLib {

FileRepresentation::FileRepresentation(boost::shared_ptr<const Source> source,
                                       unsigned int trackIndex)
    : source_(source), trackIndex_(trackIndex) {
  if (!source) {
    throw KelMediaLibException("a file media needs a source");
  }
}

FileRepresentation::~FileRepresentation() = default;

std::string FileRepresentation::fileName() const {
  const boost::shared_ptr<const MediaFileStats> stats = source_->mediaFileStats();
  if (trackIndex_ < stats->trackStats().size() &&
      !stats->trackStats()[trackIndex_].fileName.empty()) {
    return stats->trackStats()[trackIndex_].fileName;
  }
  return stats->filename();
}

void FileRepresentation::checkWithinSource(long long mediaStart, long long mediaDuration,
                                           const std::string& who) const {
  const std::string stretch =
      "(" + std::to_string(mediaStart) + "," + std::to_string(mediaDuration) + ")";
  if (mediaStart < 0 || mediaDuration < 0) {
    throw KelMediaLibException(who + " can't show the stretch " + stretch + " of its source");
  }
  const boost::optional<Range<long long>> track = source_->trackRange(trackIndex_);
  if (track && mediaDuration > track->end() - mediaStart) {
    throw KelMediaLibException(who + " can't show the stretch " + stretch +
                               " of its source, whose track " + std::to_string(trackIndex_) +
                               " ends at " + std::to_string(track->end()));
  }
}

Rect<int> FileRepresentation::trackRect() const {
  const boost::shared_ptr<const MediaFileStats> stats = source_->mediaFileStats();
  if (trackIndex_ < stats->trackStats().size()) {
    const Rect<int> rect = stats->trackStats()[trackIndex_].trackRect;
    if (rect.width != 0 || rect.height != 0) {
      return rect;
    }
  }
  return stats->rect();
}

}  // namespace KelMediaLib
