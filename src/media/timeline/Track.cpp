#include "media/timeline/Track.h"

#include "core/Attribute.h"
#include "core/KelMediaLibException.h"
#include "media/media/AudioTransition.h"
#include "media/media/Media.h"

#include <algorithm>
#include <ostream>

namespace KelMediaLib {

namespace {

bool startsBefore(const boost::shared_ptr<Media>& a, const boost::shared_ptr<Media>& b) {
  return a->range().start < b->range().start;
}

}  // namespace

Track::Track(boost::weak_ptr<const ThreadSafe> project)
    : SubProject(project), ident_(new Attribute<std::string>("ident", std::string())) {}

Track::~Track() = default;

std::vector<boost::shared_ptr<const Media>> Track::medias() const {
  return std::vector<boost::shared_ptr<const Media>>(medias_.begin(), medias_.end());
}

bool Track::containsMedia(const Media* media) const {
  return std::any_of(medias_.begin(), medias_.end(),
                     [media](const boost::shared_ptr<Media>& m) { return m.get() == media; });
}

void Track::insertMedia(boost::shared_ptr<Media> media) {
  if (!media) {
    throw KelMediaLibException("can't put a null media on a track");
  }
  if (containsMedia(media.get()) || media->parent()) {
    throw KelMediaLibException("media " + std::to_string(media->xmlIdent()) +
                               " is on a track already");
  }
  if (!accepts(*media)) {
    throw KelMediaLibException("track " + std::to_string(xmlIdent()) +
                               " doesn't take media of the kind of media " +
                               std::to_string(media->xmlIdent()));
  }
  medias_.insert(std::upper_bound(medias_.begin(), medias_.end(), media, startsBefore), media);
  media->setParent(boost::weak_ptr<const Track>(shared_from_this()));
  notify();
}

void Track::eraseMedia(const Media* media) {
  const auto found = std::find_if(medias_.begin(), medias_.end(),
                                  [media](const boost::shared_ptr<Media>& m) { return m.get() == media; });
  if (found == medias_.end()) {
    throw KelMediaLibException("media " + (media ? std::to_string(media->xmlIdent()) : "(null)") +
                               " isn't on track " + std::to_string(xmlIdent()));
  }
  const boost::shared_ptr<Media> erased = *found;
  medias_.erase(found);
  erased->setParent(boost::weak_ptr<const Track>());
  notify();
}

void Track::resort() {
  std::stable_sort(medias_.begin(), medias_.end(), startsBefore);
  notify();
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
