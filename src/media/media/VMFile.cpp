#include "media/media/VMFile.h"

#include "core/Attribute.h"
#include "core/XMLText.h"
#include "media/media/ConstMediaDispatcher.h"
#include "media/media/Transformer.h"
#include "media/metadata/ScreenMetaData.h"
#include "media/sources/Source.h"

#include <boost/pointer_cast.hpp>

#include <ostream>

namespace KelMediaLib {

void writeXMLValue(std::ostream&, const boost::shared_ptr<const ScreenMetaData>&) {}

boost::shared_ptr<VMFile> VMFile::create(Range<long long> mediaRange,
                                         boost::weak_ptr<const ThreadSafe> project,
                                         boost::shared_ptr<const Source> source,
                                         unsigned int trackIndex) {
  return boost::shared_ptr<VMFile>(new VMFile(mediaRange, project, source, trackIndex));
}

VMFile::VMFile(Range<long long> mediaRange, boost::weak_ptr<const ThreadSafe> project,
               boost::shared_ptr<const Source> source, unsigned int trackIndex)
    : VisualMedia(project, mediaRange.start, mediaRange.duration),
      FileRepresentation(source, trackIndex),
      screenMetaData_(new Attribute<boost::shared_ptr<const ScreenMetaData>>(
          "screenMetaData", boost::shared_ptr<const ScreenMetaData>())) {
  checkWithinSource(mediaRange.start, mediaRange.duration, "a video media");
}

VMFile::VMFile(const VMFile& other)
    : VisualMedia(other),
      FileRepresentation(other),
      screenMetaData_(new Attribute<boost::shared_ptr<const ScreenMetaData>>(
          "screenMetaData", other.screenMetaData_->value())) {}

float VMFile::width() const { return static_cast<float>(trackRect().width); }

float VMFile::height() const { return static_cast<float>(trackRect().height); }

void VMFile::dispatch(ConstMediaDispatcher& dispatcher) const {
  dispatcher.dispatchMedia(boost::static_pointer_cast<const VMFile>(shared_from_this()));
}

Media* VMFile::copyKind() const { return new VMFile(*this); }

void VMFile::checkMediaTimeRange(long long mediaStart, long long mediaDuration) const {
  checkWithinSource(mediaStart, mediaDuration, label());
}

void VMFile::xmlName(Options& options) const { writeLiteral(options.out, "VMFile"); }

void VMFile::xmlAttributes(Options& options) const {
  std::ostream& out = options.out;
  writeTimeAttributes(options);
  writeStretchAttributes(options, mediaTimeRange().start);
  writeXMLAttribute(out, "trackNumber", trackIndex());
  writeXMLAttribute(out, "src", options.ident(*source()));
}

void VMFile::xmlBody(Options& options, int depth) const {
  writeParameters(options, depth, visualParameters());
  writeAttributes(options, depth, {ident().get()});
  if (const boost::shared_ptr<const ScreenMetaData> metaData = screenMetaData_->value()) {
    metaData->toXML(options, depth, std::string());
  }
  transformer()->toXML(options, depth, std::string());
  writeLinks(options, depth);
  writeEffects(options, depth);
  writeEdges(options, depth);
}

}  // namespace KelMediaLib
