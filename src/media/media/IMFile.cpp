#include "media/media/IMFile.h"

#include "core/Attribute.h"
#include "core/EditRateConversion.h"
#include "core/XMLText.h"
#include "media/media/ConstMediaDispatcher.h"
#include "media/media/Transformer.h"
#include "media/sources/Source.h"
#include "values/InterpolatingParam.h"
#include "values/LeftParameter.h"

#include <boost/pointer_cast.hpp>

#include <ostream>

namespace KelMediaLib {

void writeXMLValue(std::ostream& out, const boost::shared_ptr<IMFile>& image) {
  out << (image ? image->xmlIdent() : 0u);
}

template class Parameter<boost::shared_ptr<IMFile>>;

boost::shared_ptr<IMFile> IMFile::create(long long mediaStart, long long duration,
                                         boost::weak_ptr<const ThreadSafe> project,
                                         boost::shared_ptr<const Source> source,
                                         unsigned int trackIndex) {
  return boost::shared_ptr<IMFile>(new IMFile(mediaStart, duration, project, source, trackIndex));
}

IMFile::IMFile(long long mediaStart, long long duration, boost::weak_ptr<const ThreadSafe> project,
               boost::shared_ptr<const Source> source, unsigned int trackIndex)
    : VisualMedia(project, mediaStart, duration), FileRepresentation(source, trackIndex) {}

IMFile::IMFile(const IMFile& other) : VisualMedia(other), FileRepresentation(other) {}

long long IMFile::defaultDuration(const EditRate& rate) { return secondsToEditUnits(5.0, rate); }

float IMFile::width() const { return static_cast<float>(trackRect().width); }

float IMFile::height() const { return static_cast<float>(trackRect().height); }

bool IMFile::isStill() const { return true; }

void IMFile::dispatch(ConstMediaDispatcher& dispatcher) const {
  dispatcher.dispatchMedia(boost::static_pointer_cast<const IMFile>(shared_from_this()));
}

Media* IMFile::copyKind() const { return new IMFile(*this); }

void IMFile::xmlName(Options& options) const { writeLiteral(options.out, "IMFile"); }

void IMFile::xmlAttributes(Options& options) const {
  std::ostream& out = options.out;
  writeTimeAttributes(options);
  // A reader makes the image at "mediaStart" and replays the trim sum, which
  // moves the start of the stretch by that sum.
  const long long trimSum = replayableTrimStartSum();
  writeStretchAttributes(options, mediaTimeRange().start - trimSum);
  writeXMLAttribute(out, "trackNumber", trackIndex());
  writeXMLAttribute(out, "src", options.ident(*source()));
  writeXMLAttribute(out, "trimStartSum", trimSum);
}

void IMFile::xmlBody(Options& options, int depth) const {
  writeParameters(options, depth, visualParameters());
  writeAttributes(options, depth, {ident().get()});
  transformer()->toXML(options, depth, std::string());
  writeLinks(options, depth);
  writeEffects(options, depth);
  writeEdges(options, depth);
}

}  // namespace KelMediaLib
