#include "media/timeline/VisualMixer.h"

#include "core/Attribute.h"
#include "core/KelMediaLibException.h"
#include "core/XMLText.h"
#include "media/media/Transformer.h"
#include "media/timeline/VisualTrack.h"
#include "values/VectorParam.h"

#include <cmath>
#include <ostream>
#include <string>

namespace KelMediaLib {

boost::shared_ptr<VisualMixer> VisualMixer::create(float width, float height,
                                                   boost::weak_ptr<const ThreadSafe> project) {
  if (!std::isfinite(width) || !std::isfinite(height) || width < 0 || height < 0) {
    throw KelMediaLibException("a visual mixer can't measure " + std::to_string(width) + " by " +
                               std::to_string(height));
  }
  return boost::shared_ptr<VisualMixer>(new VisualMixer(width, height, project));
}

VisualMixer::VisualMixer(float width, float height, boost::weak_ptr<const ThreadSafe> project)
    : Mixer(project),
      width_(new Attribute<float>("width", width)),
      height_(new Attribute<float>("height", height)),
      transformer_(Transformer::create(project)),
      eyePosition_(VectorParam::create(project, "eyePosition", {0.0, 0.0, 1000.0})),
      eyeLookAt_(VectorParam::create(project, "eyeLookAtPosition", {0.0, 0.0, 0.0})),
      eyeUp_(VectorParam::create(project, "eyeUpVector", {0.0, 1.0, 0.0})),
      fov_(InterpolatingParam<float>::create(project, "fov", 45.0f)),
      near_(InterpolatingParam<float>::create(project, "nearClipDistance", 1.0f)),
      far_(InterpolatingParam<float>::create(project, "farClipDistance", 10000.0f)) {
  registerVector(*eyePosition_);
  registerVector(*eyeLookAt_);
  registerVector(*eyeUp_);
  registerParameter(fov_);
  registerParameter(near_);
  registerParameter(far_);
  for (const boost::shared_ptr<VectorParam>& vector : transformer_->vectors()) {
    registerVector(*vector);
  }
}

bool VisualMixer::acceptsTrack(const Track& track) const {
  return dynamic_cast<const VisualTrack*>(&track) != nullptr;
}

boost::shared_ptr<Track> VisualMixer::makeTrack(boost::weak_ptr<const ThreadSafe> project) const {
  return VisualTrack::create(project);
}

void VisualMixer::xmlName(Options& options) const { writeLiteral(options.out, "VisualMixer"); }

void VisualMixer::xmlAttributes(Options& options) const {
  writeFirstXMLAttribute(options.out, "id", options.ident(*this));
}

void VisualMixer::xmlBody(Options& options, int depth) const {
  std::ostream& out = options.out;
  out << genIndent(depth) << "<Attributes>\n";
  width_->toXML(options, depth + 1, std::string());
  height_->toXML(options, depth + 1, std::string());
  out << genIndent(depth) << "</Attributes>\n";
  out << genIndent(depth) << "<Parameters>\n";
  for (const XMLable* parameter : std::vector<const XMLable*>{
           eyePosition_.get(), eyeLookAt_.get(), eyeUp_.get(), fov_.get(), near_.get(),
           far_.get()}) {
    parameter->toXML(options, depth + 1, std::string());
  }
  out << genIndent(depth) << "</Parameters>\n";
  transformer_->toXML(options, depth, std::string());
  // The tracks come last: edge modifications of their media may name the
  // mixer's parameters, which a reader must have met before.
  writeTracks(options, depth);
}

}  // namespace KelMediaLib
