#include "media/timeline/Track.h"

#include "core/Attribute.h"
#include "core/KelMediaLibException.h"
#include "media/media/AudioTransition.h"
#include "media/media/Media.h"

#include <algorithm>
#include <ostream>

namespace KelMediaLib {

namespace {

// Compares a listed media by its start with a time, either way round, so
// that the standard searches run on the list with a bare time as the key.
struct ByStart {
  bool operator()(const boost::shared_ptr<Media>& media, long long time) const {
    return media->range().start < time;
  }
  bool operator()(long long time, const boost::shared_ptr<Media>& media) const {
    return time < media->range().start;
  }
};

}  // namespace

Track::Track(boost::weak_ptr<const ThreadSafe> project)
    : SubProject(project), ident_(new Attribute<std::string>("ident", std::string())) {}

Track::~Track() = default;

std::vector<boost::shared_ptr<const Media>> Track::medias() const {
  return std::vector<boost::shared_ptr<const Media>>(medias_.begin(), medias_.end());
}

bool Track::containsMedia(const Media* media) const {
  // The parent is set exactly while the media is on a track.
  return media && media->parent().get() == this;
}

void Track::insertMedia(boost::shared_ptr<Media> media) {
  if (!media) {
    throw KelMediaLibException("can't put a null media on a track");
  }
  if (media->parent()) {
    throw KelMediaLibException("media " + std::to_string(media->xmlIdent()) +
                               " is on a track already");
  }
  if (!accepts(*media)) {
    throw KelMediaLibException("track " + std::to_string(xmlIdent()) +
                               " doesn't take media of the kind of media " +
                               std::to_string(media->xmlIdent()));
  }
  medias_.insert(std::upper_bound(medias_.begin(), medias_.end(), media->range().start, ByStart()),
                 media);
  media->setParent(boost::weak_ptr<const Track>(shared_from_this()));
  notify();
}

void Track::eraseMedia(const Media* media) {
  const MediaList::iterator found =
      containsMedia(media) ? find(media, media->range().start) : medias_.end();
  if (found == medias_.end()) {
    throw KelMediaLibException("media " + (media ? std::to_string(media->xmlIdent()) : "(null)") +
                               " isn't on track " + std::to_string(xmlIdent()));
  }
  const boost::shared_ptr<Media> erased = *found;
  medias_.erase(found);
  erased->setParent(boost::weak_ptr<const Track>());
  notify();
}

void Track::placeAgain(const Media* media, long long previousStart) {
  const MediaList::iterator found =
      containsMedia(media) ? find(media, previousStart) : medias_.end();
  if (found == medias_.end()) {
    throw KelMediaLibException("media " + (media ? std::to_string(media->xmlIdent()) : "(null)") +
                               " isn't on track " + std::to_string(xmlIdent()) + " at " +
                               std::to_string(previousStart));
  }
  const long long start = media->range().start;
  if (start == previousStart) {
    return;
  }
  // Each search leaves the moved media out: its new start may be out of
  // order with the others.
  if (start > previousStart) {
    const MediaList::iterator to = std::upper_bound(found + 1, medias_.end(), start, ByStart());
    std::rotate(found, found + 1, to);
  } else {
    const MediaList::iterator to = std::upper_bound(medias_.begin(), found, start, ByStart());
    std::rotate(to, found, found + 1);
  }
  notify();
}

Track::MediaList::iterator Track::find(const Media* media, long long start) {
  // The list is in the order of the starts as they were before the media's
  // own start changed: the media counts at `start` in every comparison.
  const auto keyOf = [media, start](const boost::shared_ptr<Media>& m) {
    return m.get() == media ? start : m->range().start;
  };
  const MediaList::iterator first = std::lower_bound(
      medias_.begin(), medias_.end(), start,
      [&keyOf](const boost::shared_ptr<Media>& m, long long time) { return keyOf(m) < time; });
  const MediaList::iterator found =
      std::find_if(first, medias_.end(), [media, start, &keyOf](const boost::shared_ptr<Media>& m) {
        return m.get() == media || keyOf(m) != start;
      });
  if (found == medias_.end() || found->get() != media) {
    return medias_.end();
  }
  // Found only if it stands in order at `start` among its neighbours.
  const bool inOrder = (found == medias_.begin() || (found - 1)->get()->range().start <= start) &&
                       (found + 1 == medias_.end() || start <= (found + 1)->get()->range().start);
  return inOrder ? found : medias_.end();
}

void Track::writeAttributes(Options& options, int depth) const {
  std::ostream& out = options.out;
  out << genIndent(depth) << "<Attributes>\n";
  ident_->toXML(options, depth + 1, std::string());
  out << genIndent(depth) << "</Attributes>\n";
}

void Track::writeMedias(Options& options, int depth) const {
  bool open = false;
  for (const boost::shared_ptr<Media>& media : medias_) {
    if (dynamic_cast<const AudioTransition*>(media.get())) {
      continue;
    }
    if (!open) {
      options.out << genIndent(depth) << "<Medias>\n";
      open = true;
    }
    media->toXML(options, depth + 1, std::string());
  }
  if (open) {
    options.out << genIndent(depth) << "</Medias>\n";
  }
}

}  // namespace KelMediaLib
