#pragma once

#include "media/commands/NamedCommand.h"
#include "media/sources/MediaFileStats.h"

#include <boost/shared_ptr.hpp>

#include <ctime>
#include <string>
#include <vector>

namespace KelMediaLib {

class Source;

/// Relinks a source to its file at a new path: the stats take the new name
/// and the file's time of change, and the tracks' own files and metadata
/// files that lay under the old path (a recording's streams) move under the
/// new one. Undo puts the names and time back exactly.
class ChangeSourcesFileCmd : public NamedCommand {
 public:
  static boost::shared_ptr<ChangeSourcesFileCmd> create(boost::shared_ptr<const Source> source,
                                                        const std::string& path);

  ChangeSourcesFileCmd* clone() const override;
  /// Throws `KelMediaLibException` on a null source.
  bool execute(CommandHandler* handler) override;
  bool unexecute(CommandHandler* handler) override;

 private:
  ChangeSourcesFileCmd(boost::shared_ptr<const Source> source, const std::string& path);

  boost::shared_ptr<const Source> source_;
  std::string path_;
  std::string oldPath_;
  std::time_t oldLastModified_;
  std::vector<MediaFileStats::TrackStats> oldTracks_;
};

}  // namespace KelMediaLib
