#include "media/commands/ChangeSourcesFileCmd.h"

#include "core/KelMediaLibException.h"
#include "media/sources/Source.h"

#include <boost/filesystem.hpp>
#include <boost/pointer_cast.hpp>

namespace KelMediaLib {

namespace {

// `name` with the leading `from` replaced by `to`, when it is `from` or lies
// under it; else unchanged.
std::string rebase(const std::string& name, const std::string& from, const std::string& to) {
  if (name == from) {
    return to;
  }
  if (!from.empty() && name.size() > from.size() && name.compare(0, from.size(), from) == 0 &&
      (name[from.size()] == '/' || from.back() == '/')) {
    return to + name.substr(from.size());
  }
  return name;
}

}  // namespace

ChangeSourcesFileCmd::ChangeSourcesFileCmd(boost::shared_ptr<const Source> source,
                                           const std::string& path)
    : NamedCommand("ChangeSourcesFileCmd"), source_(source), path_(path), oldLastModified_(0) {}

boost::shared_ptr<ChangeSourcesFileCmd> ChangeSourcesFileCmd::create(
    boost::shared_ptr<const Source> source, const std::string& path) {
  return boost::shared_ptr<ChangeSourcesFileCmd>(new ChangeSourcesFileCmd(source, path));
}

ChangeSourcesFileCmd* ChangeSourcesFileCmd::clone() const {
  return new ChangeSourcesFileCmd(source_, path_);
}

bool ChangeSourcesFileCmd::execute(CommandHandler*) {
  if (!source_) {
    throw KelMediaLibException("ChangeSourcesFileCmd: no source given");
  }
  const boost::shared_ptr<MediaFileStats> stats =
      boost::const_pointer_cast<MediaFileStats>(source_->mediaFileStats());
  oldPath_ = stats->filename();
  oldLastModified_ = stats->lastModified();
  oldTracks_ = stats->trackStats();

  std::vector<MediaFileStats::TrackStats> tracks = oldTracks_;
  for (MediaFileStats::TrackStats& track : tracks) {
    if (!track.fileName.empty()) {
      track.fileName = rebase(track.fileName, oldPath_, path_);
    }
    for (std::string& file : track.metaDataFiles) {
      file = rebase(file, oldPath_, path_);
    }
  }
  boost::system::error_code error;
  const std::time_t changed = boost::filesystem::last_write_time(path_, error);
  stats->setFilename(path_);
  stats->setLastModified(error ? oldLastModified_ : changed);
  stats->setTrackStats(tracks);
  return true;
}

bool ChangeSourcesFileCmd::unexecute(CommandHandler*) {
  const boost::shared_ptr<MediaFileStats> stats =
      boost::const_pointer_cast<MediaFileStats>(source_->mediaFileStats());
  stats->setFilename(oldPath_);
  stats->setLastModified(oldLastModified_);
  stats->setTrackStats(oldTracks_);
  return true;
}

}  // namespace KelMediaLib
