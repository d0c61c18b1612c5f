#include "media/media/Callout.h"

#include "core/Attribute.h"
#include "core/XMLText.h"
#include "media/media/ConstMediaDispatcher.h"
#include "media/media/Transformer.h"
#include "media/sources/Source.h"

#include <boost/pointer_cast.hpp>

#include <ostream>

namespace KelMediaLib {

boost::shared_ptr<Callout> Callout::create(long long mediaStart, long long duration,
                                           boost::weak_ptr<const ThreadSafe> project,
                                           boost::shared_ptr<const Source> source,
                                           unsigned int trackIndex) {
  return boost::shared_ptr<Callout>(new Callout(mediaStart, duration, project, source, trackIndex));
}

Callout::Callout(long long mediaStart, long long duration,
                 boost::weak_ptr<const ThreadSafe> project,
                 boost::shared_ptr<const Source> source, unsigned int trackIndex)
    : VisualMedia(project, mediaStart, duration),
      FileRepresentation(source, trackIndex),
      hotSpot_(new Attribute<Point>("hotspot", Point())),
      textRect_(new Attribute<Rect<float>>("textRect", Rect<float>())),
      text_(LeftParameter<std::string>::create(project, "text", std::string())) {
  registerParameter(text_);
}

Callout::Callout(const Callout& other)
    : VisualMedia(other),
      FileRepresentation(other),
      hotSpot_(new Attribute<Point>("hotspot", other.hotSpot_->value())),
      textRect_(new Attribute<Rect<float>>("textRect", other.textRect_->value())),
      text_(LeftParameter<std::string>::create(other.projectMutex(), "text", std::string())) {
  registerParameter(text_);
}

float Callout::width() const { return static_cast<float>(trackRect().width); }

float Callout::height() const { return static_cast<float>(trackRect().height); }

bool Callout::isStill() const { return true; }

void Callout::dispatch(ConstMediaDispatcher& dispatcher) const {
  dispatcher.dispatchMedia(boost::static_pointer_cast<const Callout>(shared_from_this()));
}

Media* Callout::copyKind() const { return new Callout(*this); }

void Callout::xmlName(Options& options) const { writeLiteral(options.out, "Callout"); }

void Callout::xmlAttributes(Options& options) const {
  std::ostream& out = options.out;
  writeTimeAttributes(options);
  writeStretchAttributes(options, mediaTimeRange().start);
  writeXMLAttribute(out, "trackNumber", trackIndex());
  writeXMLAttribute(out, "src", options.ident(*source()));
  writeXMLAttribute(out, "textRect", textRect_->value());
  writeXMLAttribute(out, "hotspot", hotSpot_->value());
  writeXMLAttribute(out, "trimStartSum", trimStartSum());
}

void Callout::xmlBody(Options& options, int depth) const {
  std::vector<const XMLable*> parameters = visualParameters();
  parameters.push_back(text_.get());
  writeParameters(options, depth, parameters);
  transformer()->toXML(options, depth, std::string());
  writeLinks(options, depth);
  writeEdges(options, depth);
}

}  // namespace KelMediaLib
