#include "media/sources/Source.h"

#include "core/KelMediaLibException.h"
#include "core/XMLText.h"
#include "media/sources/MediaFileStats.h"

#include <ctime>
#include <ostream>

namespace KelMediaLib {

namespace {

void writeRational(std::ostream& out, const EditRate& rate) {
  writeXMLValue(out, rate.numerator());
  out << '/';
  writeXMLValue(out, rate.denominator());
}

// The form "YYYYMMDDThhmmss", in UTC.
void writeStamp(std::ostream& out, std::time_t time) {
  std::tm parts{};
  gmtime_r(&time, &parts);
  char text[32];
  std::strftime(text, sizeof text, "%Y%m%dT%H%M%S", &parts);
  out << text;
}

}  // namespace

boost::shared_ptr<Source> Source::create(boost::shared_ptr<MediaFileStats> stats) {
  if (!stats) {
    throw KelMediaLibException("a source needs the stats of its file");
  }
  return boost::shared_ptr<Source>(new Source(stats));
}

Source::Source(boost::shared_ptr<MediaFileStats> stats) : stats_(stats) {}

boost::optional<Range<long long>> Source::trackRange(unsigned int trackIndex) const {
  const std::vector<MediaFileStats::TrackStats>& tracks = stats_->trackStats();
  if (trackIndex >= tracks.size()) {
    return boost::none;
  }
  return tracks[trackIndex].range;
}

void Source::xmlName(Options& options) const { options.out << "Source"; }

void Source::xmlAttributes(Options& options) const {
  std::ostream& out = options.out;
  out << "id=\"" << xmlIdent() << '"';
  writeXMLAttribute(out, "src", stats_->filename());
  out << " lastMod=\"";
  writeStamp(out, stats_->lastModified());
  out << '"';
  writeXMLAttribute(out, "rect", stats_->rect());
}

void Source::xmlBody(Options& options, int depth) const {
  std::ostream& out = options.out;
  for (const MediaFileStats::TrackStats& track : stats_->trackStats()) {
    out << genIndent(depth) << "<SourceTrack";
    writeXMLAttribute(out, "range", track.range);
    writeXMLAttribute(out, "type", static_cast<int>(track.type));
    out << " editRate=\"";
    writeRational(out, track.editRate);
    out << '"';
    writeXMLAttribute(out, "trackRect", track.trackRect);
    out << " sampleRate=\"";
    writeRational(out, track.sampleRate);
    out << '"';
    writeXMLAttribute(out, "bitDepth", track.bitDepth);
    writeXMLAttribute(out, "numChannels", track.numChannels);
    out << "/>\n";
  }
}

}  // namespace KelMediaLib
