#include "media/sources/Source.h"

#include "core/EditRateConversion.h"
#include "core/KelMediaLibException.h"
#include "core/XMLText.h"
#include "media/media/AMFile.h"
#include "media/media/IMFile.h"
#include "media/media/VMFile.h"
#include "media/metadata/ScreenMetaData.h"
#include "media/sources/MediaFileStats.h"
#include "values/SetAttributeValueCmd.h"

#include <boost/filesystem.hpp>

#include <ctime>
#include <limits>
#include <ostream>
#include <set>
#include <string>

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

typedef void (ScreenMetaData::*MetaDataSetter)(const std::string&);

// A recording names its metadata files by what they hold.
MetaDataSetter setterFor(const std::string& fileName) {
  const std::string stem = boost::filesystem::path(fileName).stem().string();
  if (stem == "frontmost") {
    return &ScreenMetaData::setFrontWindowFile;
  }
  if (stem == "cursorlocation") {
    return &ScreenMetaData::setCursorLocationFile;
  }
  if (stem == "cursoraction") {
    return &ScreenMetaData::setCursorActionFile;
  }
  if (stem == "dirtyrect") {
    return &ScreenMetaData::setDirtyRectsFile;
  }
  return nullptr;
}

std::string trackLabel(const MediaFileStats& stats, unsigned int index) {
  return "source \"" + stats.filename() + "\", track " + std::to_string(index);
}

std::string rangeText(const Range<long long>& range) {
  return "(" + std::to_string(range.start) + "," + std::to_string(range.duration) + ")";
}

// The track's range in units of the project's rate. Its ends are converted,
// not its start and length: ranges that meet in the track's units meet in
// edit units too.
Range<long long> editUnitRange(const MediaFileStats& stats, unsigned int index,
                               const EditRate& projectRate) {
  const MediaFileStats::TrackStats& track = stats.trackStats()[index];
  const Range<long long>& range = track.range;
  if (range == Range<long long>()) {
    return range;
  }
  const auto refuse = [&](const std::string& why) {
    return KelMediaLibException(trackLabel(stats, index) + ": its range " + rangeText(range) + " " +
                                why);
  };
  if (track.editRate.numerator() == 0) {
    throw refuse("comes without the edit rate it is counted in");
  }
  if (range.start < 0 || range.duration < 0) {
    throw refuse("is negative");
  }
  if (range.duration > std::numeric_limits<long long>::max() - range.start) {
    throw refuse("ends beyond the 64-bit time axis");
  }
  try {
    const long long start = rescaleEditUnits(range.start, track.editRate, projectRate);
    const long long end = rescaleEditUnits(range.end(), track.editRate, projectRate);
    return Range<long long>(start, end - start);
  } catch (const KelMediaLibException& e) {
    throw refuse(std::string("doesn't convert to edit units: ") + e.what());
  }
}

void attachMetaData(const boost::shared_ptr<VMFile>& video, const MediaFileStats& stats,
                    unsigned int index, const boost::weak_ptr<const ThreadSafe>& project,
                    const boost::weak_ptr<const ProjectEditRate>& editRate) {
  if (editRate.expired()) {
    throw KelMediaLibException(trackLabel(stats, index) +
                               ": screen metadata files need a project whose edit rate "
                               "converts their times");
  }
  const boost::shared_ptr<ScreenMetaData> metaData =
      ScreenMetaData::create(project, video, editRate);
  for (const std::string& file : stats.trackStats()[index].metaDataFiles) {
    const MetaDataSetter setter = setterFor(file);
    if (!setter) {
      throw KelMediaLibException(trackLabel(stats, index) + ": \"" + file +
                                 "\" is no screen metadata file (frontmost.dat, "
                                 "cursorlocation.dat, cursoraction.dat, dirtyrect.dat)");
    }
    // A recording may lack some of its metadata; what is there is read.
    boost::system::error_code error;
    if (boost::filesystem::exists(metaData->pathOf(file), error)) {
      (metaData.get()->*setter)(file);
    }
  }
  // The media is new and nobody else holds it yet: no history, no lock.
  SetAttributeValueCmd<boost::shared_ptr<const ScreenMetaData>>(video->screenMetaData(), metaData)
      .execute(nullptr);
}

}  // namespace

// The deleter of the handles that `create` hands out: with the last of them
// the source lets its media go, which breaks the cycle source -> media ->
// source, and then drops its own hold.
class Source::Release {
 public:
  explicit Release(boost::shared_ptr<Source> owner) : owner_(owner) {}

  void operator()(Source* source) {
    std::vector<boost::shared_ptr<const Media>> gone;
    gone.swap(source->media_);
    gone.clear();
    owner_.reset();
  }

 private:
  boost::shared_ptr<Source> owner_;
};

boost::shared_ptr<Source> Source::create(boost::shared_ptr<MediaFileStats> stats,
                                         boost::weak_ptr<const ThreadSafe> project,
                                         boost::weak_ptr<const ProjectEditRate> editRate) {
  if (!stats) {
    throw KelMediaLibException("a source needs the stats of its file");
  }
  boost::optional<EditRate> rate;
  if (const boost::shared_ptr<const ProjectEditRate> withRate = editRate.lock()) {
    rate = withRate->editRate();
  }
  const boost::shared_ptr<Source> owner(new Source(stats, rate));
  owner->makeMedia(owner, project, editRate);
  return boost::shared_ptr<Source>(owner.get(), Release(owner));
}

Source::Source(boost::shared_ptr<MediaFileStats> stats, boost::optional<EditRate> editRate)
    : stats_(stats), editRate_(editRate) {}

Source::~Source() = default;

void Source::makeMedia(const boost::shared_ptr<const Source>& self,
                       const boost::weak_ptr<const ThreadSafe>& project,
                       const boost::weak_ptr<const ProjectEditRate>& editRate) {
  // Made aside, so that a failure leaves no media holding the source.
  std::vector<boost::shared_ptr<const Media>> made;
  const std::vector<MediaFileStats::TrackStats>& tracks = stats_->trackStats();
  for (unsigned int index = 0; index < tracks.size(); ++index) {
    const MediaFileStats::TrackStats& track = tracks[index];
    const Range<long long> range = *trackRange(index);
    switch (track.type) {
      case MediaFileStats::Video: {
        const boost::shared_ptr<VMFile> video = VMFile::create(range, project, self, index);
        if (!track.metaDataFiles.empty()) {
          attachMetaData(video, *stats_, index, project, editRate);
        }
        made.push_back(video);
        break;
      }
      case MediaFileStats::Image: {
        // A picture has no length of its own; the stats of a still say 0.
        const long long duration =
            range.duration == 0 && editRate_ ? IMFile::defaultDuration(*editRate_) : range.duration;
        made.push_back(IMFile::create(range.start, duration, project, self, index));
        break;
      }
      case MediaFileStats::Audio: {
        std::set<unsigned int> channels;
        for (int channel = 0; channel < track.numChannels; ++channel) {
          channels.insert(static_cast<unsigned int>(channel));
        }
        made.push_back(AMFile::create(range, project, self, index, channels));
        break;
      }
    }
  }
  media_.swap(made);
}

boost::optional<Range<long long>> Source::trackRange(unsigned int trackIndex) const {
  const std::vector<MediaFileStats::TrackStats>& tracks = stats_->trackStats();
  if (trackIndex >= tracks.size()) {
    return boost::none;
  }
  if (!editRate_) {
    return tracks[trackIndex].range;
  }
  return editUnitRange(*stats_, trackIndex, *editRate_);
}

void Source::xmlName(Options& options) const {
  writeLiteral(options.out, "Source");
}

void Source::xmlAttributes(Options& options) const {
  std::ostream& out = options.out;
  writeLiteral(out, "id=\"");
  writeXMLValue(out, options.ident(*this));
  writeLiteral(out, "\"");
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
