#include "InfoCommand.h"

#include "actions/ActionBin.h"
#include "clipbin/VidpakStatsLoader.h"
#include "core/ParserException.h"
#include "core/ReadWriteMutex.h"
#include "core/XMLable.h"
#include "media/media/Media.h"
#include "media/project/SourceBin.h"
#include "media/sources/MediaFileStats.h"
#include "media/sources/Source.h"
#include "media/timeline/AudioMixer.h"
#include "media/timeline/Timeline.h"
#include "media/timeline/Track.h"
#include "media/timeline/VisualMixer.h"
#include "parser/OrvParser.h"
#include "project/OrvProject.h"
#include "values/ParameterInterface.h"
#include "values/Parametric.h"

#include <boost/filesystem.hpp>

#include <unistd.h>

#include <exception>
#include <ostream>
#include <sstream>

namespace orv {

namespace {

// Notes the sources the file names that aren't there and lets the load go
// on without them; a changed file is loaded as it is now.
class NotingHandlers : public KelMediaLib::MissingFileHandler,
                       public KelMediaLib::ChangedFileHandler {
 public:
  std::string handleMissingFile(const std::string& path) override {
    missing.push_back(path);
    return std::string();
  }
  bool handleChangedFile(const std::string& path, const KelMediaLib::MediaFileStats*,
                         const KelMediaLib::MediaFileStats*) override {
    changed.push_back(path);
    return true;
  }
  std::vector<std::string> missing;
  std::vector<std::string> changed;
};

std::string kindOf(const KelMediaLib::XMLable& object) {
  std::ostringstream text;
  KelMediaLib::XMLable::Options options(text);
  object.xmlName(options);
  return text.str();
}

std::string rangeText(const KelMediaLib::Range<long long>& range) {
  return "(" + std::to_string(range.start) + "," + std::to_string(range.duration) + ")";
}

void printParameters(const KelMediaLib::Parametric& owner, const std::string& indent,
                     std::ostream& out) {
  for (const auto& parameter : owner.parameters()) {
    // A parameter at rest holds its one key frame at time 0.
    if (parameter->numKeyFrames() > 1 ||
        (parameter->numKeyFrames() == 1 && !parameter->hasKeyFrameAt(0))) {
      out << indent << parameter->name() << ": " << parameter->numKeyFrames() << " key frames\n";
    }
  }
}

void printTrack(const OrvMediaLib::OrvProject& project, const KelMediaLib::Track& track,
                const std::string& label, std::ostream& out) {
  const auto medias = track.medias();
  out << "  " << label << ": " << medias.size() << " media\n";
  for (const auto& media : medias) {
    out << "    " << kindOf(*media) << " at " << rangeText(media->range()) << " showing "
        << rangeText(media->mediaTimeRange());
    const auto actions = project.actionBin()->mediasActions(media.get())->size() +
                         project.zdActionBin()->mediasActions(media.get())->size() +
                         project.audioActionBin()->mediasActions(media.get())->size();
    if (actions != 0) {
      out << ", " << actions << " actions";
    }
    out << '\n';
    printParameters(*media, "      ", out);
  }
}

void printSummary(const OrvMediaLib::OrvProject& project, const NotingHandlers& handlers,
                  std::ostream& out) {
  const KelMediaLib::ReadWriteMutex::ScopedReadLock lock(project.mutex());
  const KelMediaLib::EditRate rate = project.editRate();
  out << "edit rate: " << rate.numerator() << '/' << rate.denominator() << '\n';
  const auto sources = project.sourceBin()->sources();
  out << "sources: " << sources.size() + handlers.missing.size() << '\n';
  for (const auto& source : sources) {
    const std::string& file = source->mediaFileStats()->filename();
    bool changed = false;
    for (const std::string& path : handlers.changed) {
      changed = changed || path == file;
    }
    out << "  " << file << (changed ? " (found, changed since saved)" : " (found)") << '\n';
  }
  for (const std::string& path : handlers.missing) {
    out << "  " << path << " (missing)\n";
  }
  const auto timeline = project.timeline();
  int index = 0;
  out << "tracks:\n";
  if (const auto mixer = timeline->visualMixer()) {
    for (const auto& track : mixer->tracks()) {
      printTrack(project, *track, "visual track " + std::to_string(index++), out);
    }
  }
  index = 0;
  if (const auto mixer = timeline->audioMixer()) {
    for (const auto& track : mixer->tracks()) {
      printTrack(project, *track, "audio track " + std::to_string(index++), out);
    }
  }
  out << "actions: actionBin " << project.actionBin()->numActions() << ", zdActionBin "
      << project.zdActionBin()->numActions() << ", audioActionBin "
      << project.audioActionBin()->numActions() << '\n';
}

// A bar of 40 cells on a terminal line, redrawn in place.
class ProgressBar {
 public:
  explicit ProgressBar(std::ostream& err) : err_(err) {}
  ~ProgressBar() {
    if (drawn_) {
      err_ << '\n';
    }
  }
  bool operator()(std::uint64_t read, std::uint64_t total) {
    const int cells = total == 0 ? 0 : static_cast<int>(read * 40 / total);
    if (cells != cells_ || !drawn_) {
      cells_ = cells;
      drawn_ = true;
      err_ << "\rloading [" << std::string(static_cast<std::size_t>(cells), '#')
           << std::string(static_cast<std::size_t>(40 - cells), ' ') << "] "
           << (total == 0 ? 0 : read * 100 / total) << '%' << std::flush;
    }
    return true;
  }

 private:
  std::ostream& err_;
  int cells_ = -1;
  bool drawn_ = false;
};

// A recording bundle: what its stats say, track by track.
int printBundle(const std::string& path, std::ostream& out, std::ostream& err) {
  const auto stats = KelMediaLib::MediaFileStats::create();
  try {
    OrvMediaLib::VidpakStatsLoader().loadStats(path, stats.get());
  } catch (const KelMediaLib::ParserException& exception) {
    err << "orv info: " << path << ": " << exception.positionText() << '\n';
    return kExitFailure;
  } catch (const std::exception& exception) {
    err << "orv info: " << path << ": " << exception.what() << '\n';
    return kExitFailure;
  }
  out << path << " (recording bundle, " << stats->rect().width << 'x' << stats->rect().height
      << ")\ntracks:\n";
  for (const auto& track : stats->trackStats()) {
    out << "  " << (track.type == KelMediaLib::MediaFileStats::Audio ? "audio " : "video ")
        << boost::filesystem::path(track.fileName).filename().string() << " "
        << rangeText(track.range) << " at " << track.editRate.numerator() << '/'
        << track.editRate.denominator();
    if (!track.metaDataFiles.empty()) {
      out << ", " << track.metaDataFiles.size() << " metadata files";
    }
    out << '\n';
  }
  return kExitOk;
}

}  // namespace

std::string InfoCommand::usage() const {
  return "usage: orv info [--progress | --no-progress] <file>\n"
         "\n"
         "Loads a project file and prints a summary of it, or the error that\n"
         "stops the load with its line and column. Of a recording bundle (a folder\n"
         "with a project.xml) it prints the tracks. Sources whose files are\n"
         "missing are listed as such. Exits with 1 when the file doesn't load.\n"
         "\n"
         "  --progress     show a progress bar on standard error\n"
         "  --no-progress  never show one (default: for files of 4 MiB or more\n"
         "                 when standard error is a terminal)\n";
}

int InfoCommand::run(const std::vector<std::string>& args, std::ostream& out, std::ostream& err) {
  std::string path;
  int progress = -1;
  for (const std::string& arg : args) {
    if (arg == "--progress") {
      progress = 1;
    } else if (arg == "--no-progress") {
      progress = 0;
    } else if (arg.size() > 1 && arg[0] == '-') {
      err << "orv info: unknown option '" << arg << "'\n" << usage();
      return kExitUsage;
    } else if (path.empty()) {
      path = arg;
    } else {
      err << "orv info: one file at a time\n" << usage();
      return kExitUsage;
    }
  }
  if (path.empty()) {
    err << usage();
    return kExitUsage;
  }
  if (OrvMediaLib::VidpakStatsLoader().canOpenFile(path)) {
    return printBundle(path, out, err);
  }
  if (progress < 0) {
    boost::system::error_code error;
    const auto size = boost::filesystem::file_size(path, error);
    progress = !error && size >= kProgressThreshold && isatty(STDERR_FILENO) ? 1 : 0;
  }
  NotingHandlers handlers;
  try {
    boost::shared_ptr<OrvMediaLib::OrvProject> project;
    {
      ProgressBar bar(err);
      OrvMediaLib::OrvParser parser(&handlers, &handlers);
      if (progress == 1) {
        parser.setProgressCallback(std::ref(bar));
      }
      parser.setPathPrefix(boost::filesystem::path(path).parent_path().string());
      project = parser.parseProject(path);
    }
    out << path << '\n';
    if (!project) {
      out << "no project in the file\n";
      return kExitOk;
    }
    printSummary(*project, handlers, out);
    return kExitOk;
  } catch (const KelMediaLib::ParserException& exception) {
    err << "orv info: " << path << ": " << exception.positionText() << '\n';
  } catch (const std::exception& exception) {
    err << "orv info: " << path << ": " << exception.what() << '\n';
  }
  for (const std::string& missing : handlers.missing) {
    err << "orv info: source file missing: " << missing << '\n';
  }
  return kExitFailure;
}

}  // namespace orv
