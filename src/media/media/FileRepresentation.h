#pragma once

#include "values/Range.h"
#include "values/Rect.h"

#include <boost/shared_ptr.hpp>

#include <string>

namespace KelMediaLib {

class Source;

/// The side of a media that shows one track of a source file: which source,
/// which of its tracks, and that track's file.
class FileRepresentation {
 public:
  virtual ~FileRepresentation();

  boost::shared_ptr<const Source> source() const { return source_; }
  /// The index of the track in the source's stats.
  unsigned int trackIndex() const { return trackIndex_; }
  /// The file of the track: the track's own file name when the stats give
  /// one, else the source's.
  std::string fileName() const;

 protected:
  /// Throws `KelMediaLibException` on a null source.
  FileRepresentation(boost::shared_ptr<const Source> source, unsigned int trackIndex);

  /// Throws `KelMediaLibException`, naming `who`, when (mediaStart,
  /// mediaDuration) starts before 0 or, when the source knows the track's
  /// range, ends past that range's end.
  void checkWithinSource(long long mediaStart, long long mediaDuration,
                         const std::string& who) const;
  /// The track's rectangle when the stats give one, else the source's.
  Rect<int> trackRect() const;

 private:
  boost::shared_ptr<const Source> source_;
  unsigned int trackIndex_;
};

}  // namespace KelMediaLib
