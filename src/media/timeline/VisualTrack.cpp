#include "media/timeline/VisualTrack.h"

#include "core/XMLText.h"
#include "media/media/Transformer.h"
#include "media/media/VisualMedia.h"
#include "values/VectorParam.h"

#include <boost/pointer_cast.hpp>

#include <ostream>

namespace KelMediaLib {

VisualTrack::AsVisual::result_type VisualTrack::AsVisual::operator()(
    const boost::shared_ptr<Media>& media) const {
  return boost::static_pointer_cast<const VisualMedia>(media);
}

boost::shared_ptr<VisualTrack> VisualTrack::create(boost::weak_ptr<const ThreadSafe> project) {
  return boost::shared_ptr<VisualTrack>(new VisualTrack(project));
}

VisualTrack::VisualTrack(boost::weak_ptr<const ThreadSafe> project)
    : Track(project), transformer_(Transformer::create(project)) {
  for (const boost::shared_ptr<VectorParam>& vector : transformer_->vectors()) {
    registerVector(*vector);
  }
}

VisualTrack::VisualMediaIterator VisualTrack::visualMediaBegin() const {
  return VisualMediaIterator(mediaList().begin(), AsVisual());
}

VisualTrack::VisualMediaIterator VisualTrack::visualMediaEnd() const {
  return VisualMediaIterator(mediaList().end(), AsVisual());
}

// Only visual media derive from VisualMedia among the non-audio kinds, which
// makes the static cast of the iterators safe.
bool VisualTrack::accepts(const Media& media) const {
  return dynamic_cast<const VisualMedia*>(&media) != nullptr;
}

void VisualTrack::xmlName(Options& options) const { writeLiteral(options.out, "VisualTrack"); }

void VisualTrack::xmlAttributes(Options& options) const {
  writeFirstXMLAttribute(options.out, "id", options.ident(*this));
}

void VisualTrack::xmlBody(Options& options, int depth) const {
  // The transformer stands ahead of the media, whose edge modifications may
  // name its members.
  writeAttributes(options, depth);
  transformer_->toXML(options, depth, std::string());
  writeMedias(options, depth);
}

}  // namespace KelMediaLib
