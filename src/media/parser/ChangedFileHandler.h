#pragma once

#include <string>

namespace KelMediaLib {

class MediaFileStats;

/// Asked by the reader when a source file was modified after the project
/// file was written.
class ChangedFileHandler {
 public:
  virtual ~ChangedFileHandler() = default;
  /// `stored` are the statistics the project file holds, `current` those of
  /// the file as it is now; neither is owned. Returns true to load the file
  /// as it is, false to go on without the source.
  virtual bool handleChangedFile(const std::string& path, const MediaFileStats* stored,
                                 const MediaFileStats* current) = 0;
};

}  // namespace KelMediaLib
