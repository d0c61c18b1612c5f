#pragma once

// Prints the whole model of a project as text, so that a test can compare
// the state before and after an edit and a failure shows what differs.

#include "core/Attribute.h"
#include "core/XMLable.h"
#include "media/edges/EdgeModFunc.h"
#include "media/edges/EdgeModification.h"
#include "media/effects/Effect.h"
#include "media/media/Media.h"
#include "media/project/Project.h"
#include "media/project/SourceBin.h"
#include "media/sources/MediaFileStats.h"
#include "media/sources/Source.h"
#include "media/timeline/AudioMixer.h"
#include "media/timeline/Mixer.h"
#include "media/timeline/Timeline.h"
#include "media/timeline/Track.h"
#include "media/timeline/VisualMixer.h"
#include "values/ParameterInterface.h"
#include "values/Parametric.h"

#include <boost/shared_ptr.hpp>

#include <sstream>
#include <string>
#include <vector>

namespace KelMediaLib {
namespace testSupport {

inline std::string elementName(const XMLable& object) {
  std::ostringstream out;
  XMLable::Options options(out);
  object.xmlName(options);
  return out.str();
}

inline std::string ident(const XMLIdentified& object) {
  return "#" + std::to_string(object.xmlIdent());
}

// Every parameter with its key frames (and an interpolating one's
// interpolaters), in the XML form.
inline void writeParameters(std::ostream& out, const Parametric& parametric, int depth) {
  XMLable::Options options(out);
  for (const auto& parameter : parametric.parameters()) {
    parameter->toXML(options, depth, std::string());
  }
}

inline void writeEdge(std::ostream& out, const char* side, long long length,
                      const std::vector<boost::shared_ptr<const EdgeModification>>& mods) {
  out << "    " << side << " edge " << length << ':';
  for (const auto& mod : mods) {
    out << " [" << (mod->parameter() ? mod->parameter()->name() : std::string("-")) << ' '
        << elementName(mod->function()) << ']';
  }
  out << '\n';
}

inline void writeMedia(std::ostream& out, const Media& media) {
  const boost::shared_ptr<const Track> track = media.parent();
  out << "  " << elementName(media) << ' ' << ident(media) << " range=" << media.range()
      << " source=" << media.mediaTimeRange() << " scalar=" << media.scalar()
      << " trimStartSum=" << media.trimStartSum()
      << " track=" << (track ? ident(*track) : std::string("none")) << '\n';
  out << "    links:";
  for (const auto& link : media.links()) {
    const boost::shared_ptr<const Media> linked = link.lock();
    out << ' ' << (linked ? ident(*linked) : std::string("gone"));
  }
  out << '\n';
  writeEdge(out, "left", media.leftEdgeLength(), media.leftEdgeModifications());
  writeEdge(out, "right", media.rightEdgeLength(), media.rightEdgeModifications());
  for (int i = 0; i < media.numEffects(); ++i) {
    const boost::shared_ptr<const Effect> effect = media.effectAt(i);
    out << "    effect " << effect->name() << ' ' << ident(*effect) << '\n';
    writeParameters(out, *effect, 3);
  }
  writeParameters(out, media, 2);
}

inline void writeMixer(std::ostream& out, const Mixer& mixer) {
  for (const auto& track : mixer.tracks()) {
    out << elementName(*track) << ' ' << ident(*track) << " ident=\"" << track->ident()->value()
        << "\"\n";
    writeParameters(out, *track, 1);
    for (const auto& media : track->medias()) {
      writeMedia(out, *media);
    }
  }
}

/// The whole model of the project as text.
inline std::string modelSnapshot(const Project& project) {
  std::ostringstream out;
  for (const auto& source : project.sourceBin()->sources()) {
    out << "source " << ident(*source) << ' ' << source->mediaFileStats()->filename() << '\n';
  }
  const boost::shared_ptr<const Timeline> timeline = project.timeline();
  if (const boost::shared_ptr<const VisualMixer> mixer = timeline->visualMixer()) {
    out << "visual mixer " << ident(*mixer) << ' ' << mixer->attributeWidth()->value() << 'x'
        << mixer->attributeHeight()->value() << '\n';
    writeParameters(out, *mixer, 1);
    writeMixer(out, *mixer);
  }
  if (const boost::shared_ptr<const AudioMixer> mixer = timeline->audioMixer()) {
    out << "audio mixer " << ident(*mixer) << ' ' << mixer->attributeSampleRate()->value() << '/'
        << mixer->attributeBitDepth()->value() << '/' << mixer->attributeNumChannels()->value()
        << '\n';
    writeMixer(out, *mixer);
  }
  return out.str();
}

}  // namespace testSupport
}  // namespace KelMediaLib
