#pragma once

#include "core/KelObject.h"

#include <boost/shared_ptr.hpp>

#include <string>
#include <vector>

namespace KelMediaLib {

class MediaFileStats;

/// Reads what a kind of source file holds into `MediaFileStats`.
///
/// Loaders stand in one process-wide registry that `MediaFileStats::create`
/// asks in order: first the loaders registered by the application and its
/// libraries, in the order of registration, then the library's default
/// loader, which probes any video, audio or picture file that FFmpeg opens.
/// The first loader whose `canOpenFile` answers true loads the file.
class StatsLoader : public KelObject {
 public:
  /// Whether this loader reads the file or directory at `path`.
  virtual bool canOpenFile(const std::string& path) = 0;
  /// Fills `stats` with the file's tracks (and its rectangle, name and time
  /// of change where the loader knows better than the caller); throws on a
  /// file it can't read.
  virtual void loadStats(const std::string& path, MediaFileStats* stats) = 0;

  /// Puts `loader` behind the loaders registered before it, ahead of the
  /// default loader. Throws `KelMediaLibException` on null or on a loader
  /// registered already.
  static void registerLoader(boost::shared_ptr<StatsLoader> loader);
  /// Takes a registered loader out; throws `KelMediaLibException` on one that
  /// isn't registered (the default loader stays).
  static void unregisterLoader(const StatsLoader* loader);
  /// All loaders in the order they are asked, the default one last.
  static std::vector<boost::shared_ptr<StatsLoader>> loaders();
  /// The first loader that opens `path`; null when none does.
  static boost::shared_ptr<StatsLoader> loaderFor(const std::string& path);
};

}  // namespace KelMediaLib
