#include "media/media/Media.h"

#include "core/Attribute.h"
#include "core/KelMediaLibException.h"
#include "core/XMLText.h"
#include "media/edges/EdgeModFunc.h"
#include "media/edges/EdgeModification.h"
#include "media/effects/Effect.h"
#include "media/effects/GenericEffect.h"
#include "media/media/AudioTransition.h"
#include "media/timeline/Mixer.h"
#include "media/timeline/Track.h"
#include "values/Parameter.h"
#include "values/ParameterInterface.h"

#include <boost/pointer_cast.hpp>

#include <algorithm>
#include <cmath>
#include <ostream>
#include <sstream>

namespace KelMediaLib {

namespace {

// Rounds a time computed in double to edit units; refuses what doesn't fit.
long long toUnits(double value, const std::string& what) {
  if (!std::isfinite(value) || std::fabs(value) > 9.0e18) {
    throw KelMediaLibException(what + ": the time " + std::to_string(value) + " is out of range");
  }
  return std::llround(value);
}

long long checkedSum(long long a, long long b, const std::string& what) {
  long long sum = 0;
  if (__builtin_add_overflow(a, b, &sum)) {
    throw KelMediaLibException(what + ": the time " + std::to_string(a) + " + " +
                               std::to_string(b) + " is out of range");
  }
  return sum;
}

long long checkedDifference(long long a, long long b, const std::string& what) {
  long long difference = 0;
  if (__builtin_sub_overflow(a, b, &difference)) {
    throw KelMediaLibException(what + ": the time " + std::to_string(a) + " - " +
                               std::to_string(b) + " is out of range");
  }
  return difference;
}

// The parameter of `copy` that stands where `parameter` stands in `source`
// (the media itself or one of its effects); `parameter` itself when it
// belongs to neither, as a track's or a mixer's parameter would.
boost::shared_ptr<const Parameter<double>> counterpart(
    const boost::shared_ptr<const Parameter<double>>& parameter, const Media& source,
    const Media& copy) {
  if (!parameter) {
    return parameter;
  }
  if (source.parameterNamed(parameter->name()).get() == parameter.get()) {
    return boost::dynamic_pointer_cast<const Parameter<double>>(
        copy.parameterNamed(parameter->name()));
  }
  for (int i = 0; i < source.numEffects() && i < copy.numEffects(); ++i) {
    if (source.effectAt(i)->parameterNamed(parameter->name()).get() == parameter.get()) {
      return boost::dynamic_pointer_cast<const Parameter<double>>(
          copy.effectAt(i)->parameterNamed(parameter->name()));
    }
  }
  return parameter;
}

}  // namespace

Media::Media(boost::weak_ptr<const ThreadSafe> project, long long mediaStart,
             long long mediaDuration)
    : SubProject(project),
      range_(0, mediaDuration),
      mediaStart_(mediaStart),
      mediaDuration_(mediaDuration),
      scalar_(1.0),
      trimStartSum_(0),
      ident_(new Attribute<std::string>("ident", std::string())),
      decorator_(nullptr),
      hasDecorator_(false) {
  if (mediaDuration < 0) {
    throw KelMediaLibException("a media can't last " + std::to_string(mediaDuration));
  }
}

Media::Media(const Media& other)
    : KelObject(other),
      Subject(other),
      Cloneable(other),
      XMLable(other),
      Parametric(other),
      SubProject(other),
      Effectable(other),
      EdgeModifiable(other),
      boost::enable_shared_from_this<Media>(),
      range_(other.range_.start, other.range_.duration),
      mediaStart_(other.mediaStart_),
      mediaDuration_(other.mediaDuration_),
      scalar_(other.scalar_),
      trimStartSum_(other.trimStartSum_),
      ident_(new Attribute<std::string>("ident", other.ident_->value())),
      decorator_(nullptr),
      hasDecorator_(false) {}

Media::~Media() {
  delete decorator_;
}

bool Media::isLinkedTo(const Media* other) const {
  return indexOfLink(other) >= 0;
}

double Media::toParameterTime(double time) const {
  return time / scalar_;
}

double Media::fromParameterTime(double time) const {
  return time * scalar_;
}

long long Media::toLocalTime(long long timelineTime) const {
  const double local =
      static_cast<double>(timelineTime - range_.start) + static_cast<double>(mediaStart_) * scalar_;
  return static_cast<long long>(local);
}

double Media::recordingToEditTime(double recordingTime) const {
  return recordingTime * scalar_;
}

void Media::setCloneDecorator(CloneDecorator<Media>* decorator) const {
  if (decorator != decorator_) {
    delete decorator_;
    decorator_ = decorator;
  }
  hasDecorator_ = decorator_ != nullptr;
}

void Media::deleteCloneDecorator() const {
  delete decorator_;
  decorator_ = nullptr;
  hasDecorator_ = false;
}

Media* Media::clone() const {
  Media* copy = copyKind();
  try {
    finishClone(*copy);
  } catch (...) {
    delete copy;
    throw;
  }
  return copy;
}

boost::shared_ptr<Media> Media::cloneMedia() const {
  const boost::shared_ptr<Media> copy(clone());
  if (decorator_) {
    decorator_->execute(this, copy);
  }
  return copy;
}

void Media::finishClone(Media& copy) const {
  for (const boost::shared_ptr<ParameterInterface>& parameter : parameters()) {
    const boost::shared_ptr<ParameterInterface> target = copy.parameterNamed(parameter->name());
    if (target) {
      target->copyKeyFramesFrom(*parameter);
    }
  }
  for (int i = 0; i < numEffects(); ++i) {
    copy.insertEffect(boost::shared_ptr<Effect>(effectAt(i)->clone()), -1);
  }
  const auto copyEdge = [&](const std::vector<boost::shared_ptr<const EdgeModification>>& list,
                            bool left) {
    for (const boost::shared_ptr<const EdgeModification>& modification : list) {
      const boost::shared_ptr<const EdgeModification> aimed(new EdgeModification(
          counterpart(modification->parameter(), *this, copy), modification->function()));
      if (left) {
        copy.insertLeftEdgeModification(aimed, -1);
      } else {
        copy.insertRightEdgeModification(aimed, -1);
      }
    }
  };
  copyEdge(leftEdgeModifications(), true);
  copyEdge(rightEdgeModifications(), false);
}

bool Media::isStill() const {
  return false;
}

bool Media::isAudio() const {
  return false;
}

void Media::scale(double factor) {
  if (!std::isfinite(factor) || factor <= 0) {
    throw KelMediaLibException(label() + " can't be scaled by " + std::to_string(factor));
  }
  changeScalar(scalar_ * factor, "scale");
}

void Media::setScalar(double scalar) {
  changeScalar(scalar, "set the scalar of");
}

void Media::changeScalar(double scalar, const char* what) {
  const std::string context = std::string("can't ") + what + " " + label();
  if (!std::isfinite(scalar) || scalar <= 0) {
    throw KelMediaLibException(context + " to the scalar " + std::to_string(scalar));
  }
  const long long duration = toUnits(static_cast<double>(mediaDuration_) * scalar, context);
  scalar_ = scalar;
  range_.duration = duration;
  notify();
}

void Media::trimStart(long long delta) {
  const std::string context =
      "can't trim " + std::to_string(delta) + " off the start of " + label();
  const long long mediaDelta = toUnits(static_cast<double>(delta) / scalar_, context);
  retime(checkedSum(range_.start, delta, context), checkedSum(mediaStart_, mediaDelta, context),
         checkedDifference(mediaDuration_, mediaDelta, context),
         checkedSum(trimStartSum_, delta, context), context);
}

void Media::trimEnd(long long delta) {
  const std::string context = "can't trim " + std::to_string(delta) + " off the end of " + label();
  const long long mediaDelta = toUnits(static_cast<double>(delta) / scalar_, context);
  retime(range_.start, mediaStart_, checkedDifference(mediaDuration_, mediaDelta, context),
         trimStartSum_, context);
}

void Media::retime(long long start, long long mediaStart, long long mediaDuration,
                   long long trimStartSum, const std::string& context) {
  if (mediaDuration < 0) {
    throw KelMediaLibException(context + ": it lasts " + std::to_string(range_.duration));
  }
  checkMediaTimeRange(mediaStart, mediaDuration);
  const long long duration = toUnits(static_cast<double>(mediaDuration) * scalar_, context);
  range_.start = start;
  range_.duration = duration;
  mediaStart_ = mediaStart;
  mediaDuration_ = mediaDuration;
  trimStartSum_ = trimStartSum;
  notify();
}

void Media::setStart(long long start) {
  range_.start = start;
  notify();
}

void Media::setParent(boost::weak_ptr<const Track> track) {
  parent_ = track;
}

int Media::indexOfLink(const Media* other) const {
  const auto found = std::find_if(
      links_.begin(), links_.end(),
      [other](const boost::weak_ptr<const Media>& l) { return l.lock().get() == other; });
  return other && found != links_.end() ? static_cast<int>(found - links_.begin()) : -1;
}

void Media::addLink(const boost::shared_ptr<const Media>& other) {
  insertLink(other, -1);
}

void Media::insertLink(const boost::shared_ptr<const Media>& other, int index) {
  if (!other) {
    throw KelMediaLibException("can't link " + label() + " to a null media");
  }
  if (other.get() == this) {
    throw KelMediaLibException("can't link " + label() + " to itself");
  }
  if (isLinkedTo(other.get())) {
    throw KelMediaLibException(label() + " is linked to " + other->label() + " already");
  }
  if (index < -1 || index > static_cast<int>(links_.size())) {
    throw KelMediaLibException("can't link " + label() + " to " + other->label() +
                               " at the index " + std::to_string(index) + " of its " +
                               std::to_string(links_.size()) + " links");
  }
  links_.insert(index == -1 ? links_.end() : links_.begin() + index, other);
}

int Media::removeLink(const Media* other) {
  const int index = indexOfLink(other);
  if (index < 0) {
    throw KelMediaLibException(label() + " isn't linked to " +
                               (other ? other->label() : std::string("a null media")));
  }
  links_.erase(links_.begin() + index);
  return index;
}

void Media::checkMediaTimeRange(long long, long long mediaDuration) const {
  if (mediaDuration < 0) {
    throw KelMediaLibException(label() + " can't show a stretch of its source lasting " +
                               std::to_string(mediaDuration));
  }
}

void Media::effectsChanged() {
  notify();
}

void Media::edgesChanged() {
  notify();
}

void Media::writeTimeAttributes(Options& options) const {
  std::ostream& out = options.out;
  writeFirstXMLAttribute(options.out, "id", options.ident(*this));
  writeXMLAttribute(out, "start", range_.start);
  writeXMLAttribute(out, "duration", range_.duration);
}

void Media::writeStretchAttributes(Options& options, long long mediaStart) const {
  // A reader scales the media by "scalar" and checks that the result is
  // "duration": after trims at a scalar other than 1 the rounded lengths may
  // disagree, and then the ratio of the lengths is what reads back.
  double scalar = scalar_;
  if (mediaDuration_ != 0 &&
      std::llround(static_cast<double>(mediaDuration_) * scalar) != range_.duration) {
    scalar = static_cast<double>(range_.duration) / static_cast<double>(mediaDuration_);
  }
  writeXMLAttribute(options.out, "scalar", scalar);
  writeXMLAttribute(options.out, "mediaStart", mediaStart);
  writeXMLAttribute(options.out, "mediaDuration", mediaDuration_);
}

long long Media::replayableTrimStartSum() const {
  return std::max(trimStartSum_, -range_.duration);
}

void Media::writeLinks(Options& options, int depth) const {
  bool open = false;
  std::ostream& out = options.out;
  for (const boost::weak_ptr<const Media>& link : links_) {
    const boost::shared_ptr<const Media> other = link.lock();
    // An audio transition has no element, so nothing could be linked to it.
    if (!other || dynamic_cast<const AudioTransition*>(other.get())) {
      continue;
    }
    if (!open) {
      out << genIndent(depth) << "<LinkedMedia>\n";
      open = true;
    }
    out << genIndent(depth + 1) << "<MediaLink link=\"";
    writeXMLValue(out, options.ident(*other));
    out << "\"/>\n";
  }
  if (open) {
    out << genIndent(depth) << "</LinkedMedia>\n";
  }
}

void Media::writeEffects(Options& options, int depth) const {
  bool open = false;
  for (int i = 0; i < numEffects(); ++i) {
    const boost::shared_ptr<const Effect> effect = effectAt(i);
    if (!dynamic_cast<const GenericEffect*>(effect.get())) {
      continue;
    }
    if (!open) {
      options.out << genIndent(depth) << "<Effects>\n";
      open = true;
    }
    effect->toXML(options, depth + 1, std::string());
  }
  if (open) {
    options.out << genIndent(depth) << "</Effects>\n";
  }
}

void Media::writeEdges(Options& options, int depth) const {
  const auto writeEdge = [&](const char* name, long long length,
                             const std::vector<boost::shared_ptr<const EdgeModification>>& list) {
    if (length == 0 && list.empty()) {
      return;
    }
    std::ostream& out = options.out;
    out << genIndent(depth) << '<' << name;
    writeXMLAttribute(out, "length", length);
    out << ">\n";
    for (const boost::shared_ptr<const EdgeModification>& modification : list) {
      if (xmlKnowsParameter(modification->parameter().get())) {
        modification->toXML(options, depth + 1, std::string());
      }
    }
    out << genIndent(depth) << "</" << name << ">\n";
  };
  writeEdge("LeftEdgeMods", leftEdgeLength(), leftEdgeModifications());
  writeEdge("RightEdgeMods", rightEdgeLength(), rightEdgeModifications());
}

bool Media::xmlKnowsParameter(const Parameter<double>* parameter) const {
  if (!parameter) {
    return false;
  }
  const auto owns = [parameter](const Parametric* owner) {
    return owner && owner->parameterNamed(parameter->name()).get() == parameter;
  };
  if (xmlDeclaresParameters() && owns(this)) {
    return true;
  }
  const boost::shared_ptr<const Track> track = parent();
  if (!track) {
    return false;
  }
  const boost::shared_ptr<const Mixer> mixer = track->parent().lock();
  return owns(track.get()) || owns(dynamic_cast<const Parametric*>(mixer.get()));
}

bool Media::xmlDeclaresParameters() const {
  return true;
}

void Media::writeParameters(Options& options, int depth,
                            const std::vector<const XMLable*>& parameters) {
  if (parameters.empty()) {
    return;
  }
  options.out << genIndent(depth) << "<Parameters>\n";
  for (const XMLable* parameter : parameters) {
    parameter->toXML(options, depth + 1, std::string());
  }
  options.out << genIndent(depth) << "</Parameters>\n";
}

void Media::writeAttributes(Options& options, int depth,
                            const std::vector<const XMLable*>& attributes) {
  if (attributes.empty()) {
    return;
  }
  options.out << genIndent(depth) << "<Attributes>\n";
  for (const XMLable* attribute : attributes) {
    attribute->toXML(options, depth + 1, std::string());
  }
  options.out << genIndent(depth) << "</Attributes>\n";
}

std::string Media::label() const {
  std::ostringstream text;
  Options options(text);
  xmlName(options);
  text << ' ' << xmlIdent();
  return text.str();
}

}  // namespace KelMediaLib
