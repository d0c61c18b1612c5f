#include "media/media/ImageTransition.h"

#include "core/Attribute.h"
#include "core/XMLText.h"
#include "media/media/ConstMediaDispatcher.h"
#include "media/timeline/Track.h"
#include "media/timeline/VisualMixer.h"

#include <boost/pointer_cast.hpp>

#include <ostream>

namespace KelMediaLib {

namespace {

boost::shared_ptr<const VisualMixer> mixerOf(const Media& media) {
  const boost::shared_ptr<const Track> track = media.parent();
  if (!track) {
    return boost::shared_ptr<const VisualMixer>();
  }
  return boost::dynamic_pointer_cast<const VisualMixer>(track->parent().lock());
}

}  // namespace

boost::shared_ptr<ImageTransition> ImageTransition::create(
    long long duration, boost::weak_ptr<const ThreadSafe> project) {
  return boost::shared_ptr<ImageTransition>(new ImageTransition(duration, project));
}

ImageTransition::ImageTransition(long long duration, boost::weak_ptr<const ThreadSafe> project)
    : VisualMedia(project, 0, duration) {}

ImageTransition::ImageTransition(const ImageTransition& other) : VisualMedia(other) {}

float ImageTransition::width() const {
  const boost::shared_ptr<const VisualMixer> mixer = mixerOf(*this);
  return mixer ? mixer->attributeWidth()->value() : 0.0f;
}

float ImageTransition::height() const {
  const boost::shared_ptr<const VisualMixer> mixer = mixerOf(*this);
  return mixer ? mixer->attributeHeight()->value() : 0.0f;
}

bool ImageTransition::isStill() const {
  return true;
}

void ImageTransition::dispatch(ConstMediaDispatcher& dispatcher) const {
  dispatcher.dispatchMedia(boost::static_pointer_cast<const ImageTransition>(shared_from_this()));
}

Media* ImageTransition::copyKind() const {
  return new ImageTransition(*this);
}

void ImageTransition::xmlName(Options& options) const {
  writeLiteral(options.out, "ImageTransition");
}

void ImageTransition::xmlAttributes(Options& options) const {
  writeTimeAttributes(options);
}

// A reader skips the parameters of an image transition, so an edge
// modification can't name one of them.
bool ImageTransition::xmlDeclaresParameters() const {
  return false;
}

void ImageTransition::xmlBody(Options& options, int depth) const {
  writeParameters(options, depth, visualParameters());
  writeAttributes(options, depth, {ident().get()});
  writeEffects(options, depth);
  writeEdges(options, depth);
}

}  // namespace KelMediaLib
