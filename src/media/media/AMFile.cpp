#include "media/media/AMFile.h"

#include "core/Attribute.h"
#include "core/KelMediaLibException.h"
#include "core/XMLText.h"
#include "media/media/ConstMediaDispatcher.h"
#include "media/sources/MediaFileStats.h"
#include "media/sources/Source.h"

#include <boost/pointer_cast.hpp>

#include <sstream>
#include <string>

namespace KelMediaLib {

namespace {

// The source track's sample rate (a rate per second, whole in practice) and
// bit depth; 0 when the stats don't know the track.
unsigned int trackSampleRate(const Source& source, unsigned int trackIndex) {
  const std::vector<MediaFileStats::TrackStats>& tracks = source.mediaFileStats()->trackStats();
  if (trackIndex >= tracks.size() || tracks[trackIndex].sampleRate.denominator() == 0) {
    return 0;
  }
  const EditRate rate = tracks[trackIndex].sampleRate;
  return static_cast<unsigned int>(rate.numerator() / rate.denominator());
}

unsigned int trackBitDepth(const Source& source, unsigned int trackIndex) {
  const std::vector<MediaFileStats::TrackStats>& tracks = source.mediaFileStats()->trackStats();
  if (trackIndex >= tracks.size() || tracks[trackIndex].bitDepth < 0) {
    return 0;
  }
  return static_cast<unsigned int>(tracks[trackIndex].bitDepth);
}

KelMediaLibException badChannels(const std::string& seen) {
  return KelMediaLibException("a channel list reads like \"(0,1)\", not \"" + seen + "\"");
}

}  // namespace

boost::shared_ptr<AMFile> AMFile::create(Range<long long> mediaRange,
                                         boost::weak_ptr<const ThreadSafe> project,
                                         boost::shared_ptr<const Source> source,
                                         unsigned int trackIndex,
                                         const std::set<unsigned int>& channels) {
  if (!source) {
    throw KelMediaLibException("an audio media needs a source");
  }
  return boost::shared_ptr<AMFile>(new AMFile(mediaRange, project, source, trackIndex, channels));
}

AMFile::AMFile(Range<long long> mediaRange, boost::weak_ptr<const ThreadSafe> project,
               boost::shared_ptr<const Source> source, unsigned int trackIndex,
               const std::set<unsigned int>& channels)
    : AudioMedia(project, mediaRange.start, mediaRange.duration,
                 trackSampleRate(*source, trackIndex), trackBitDepth(*source, trackIndex)),
      FileRepresentation(source, trackIndex),
      channels_(channels) {
  checkWithinSource(mediaRange.start, mediaRange.duration, "an audio media");
}

AMFile::AMFile(const AMFile& other)
    : AudioMedia(other), FileRepresentation(other), channels_(other.channels_) {}

void AMFile::readChannels(std::istream& in, std::set<unsigned int>& channels) {
  std::string text;
  char c = 0;
  while (in.get(c)) {
    text += c;
  }
  std::set<unsigned int> read;
  if (text.size() < 2 || text.front() != '(' || text.back() != ')') {
    throw badChannels(text);
  }
  const std::string inner = text.substr(1, text.size() - 2);
  if (!inner.empty()) {
    std::string::size_type from = 0;
    while (true) {
      const std::string::size_type comma = inner.find(',', from);
      const std::string number = inner.substr(from, comma == std::string::npos ? std::string::npos
                                                                                : comma - from);
      if (number.empty() || number.size() > 9 ||
          number.find_first_not_of("0123456789") != std::string::npos) {
        throw badChannels(text);
      }
      read.insert(static_cast<unsigned int>(std::stoul(number)));
      if (comma == std::string::npos) {
        break;
      }
      from = comma + 1;
    }
  }
  channels.swap(read);
}

void AMFile::writeChannels(std::ostream& out, const std::set<unsigned int>& channels) {
  out << '(';
  bool first = true;
  for (unsigned int channel : channels) {
    if (!first) {
      out << ',';
    }
    writeXMLValue(out, channel);
    first = false;
  }
  out << ')';
}

void AMFile::dispatch(ConstMediaDispatcher& dispatcher) const {
  dispatcher.dispatchMedia(boost::static_pointer_cast<const AMFile>(shared_from_this()));
}

Media* AMFile::copyKind() const { return new AMFile(*this); }

void AMFile::checkMediaTimeRange(long long mediaStart, long long mediaDuration) const {
  checkWithinSource(mediaStart, mediaDuration, label());
}

void AMFile::xmlName(Options& options) const { writeLiteral(options.out, "AMFile"); }

void AMFile::xmlAttributes(Options& options) const {
  std::ostream& out = options.out;
  writeTimeAttributes(options);
  writeStretchAttributes(options, mediaTimeRange().start);
  writeXMLAttribute(out, "trackNumber", trackIndex());
  writeXMLAttribute(out, "src", options.ident(*source()));
  out << " channelNumber=\"";
  writeChannels(out, channels_);
  out << '"';
}

void AMFile::xmlBody(Options& options, int depth) const {
  writeParameters(options, depth, {volume().get()});
  writeAttributes(options, depth,
                  {sampleRate().get(), bitDepth().get(), ident().get(), gain().get()});
  writeLinks(options, depth);
  writeEdges(options, depth);
}

}  // namespace KelMediaLib
