#pragma once

#include "media/media/FileRepresentation.h"
#include "media/media/VisualMedia.h"

#include <boost/shared_ptr.hpp>
#include <boost/weak_ptr.hpp>

#include <ostream>

namespace KelMediaLib {

template <class T>
class Attribute;
class ScreenMetaData;

/// The metadata of a screen recording isn't a value of the file's
/// attribute form (it is written as an element of its own): writes nothing.
void writeXMLValue(std::ostream& out, const boost::shared_ptr<const ScreenMetaData>& metaData);

/// A stretch of a video track of a source file. It can't show source time
/// before 0 nor past the end of its track's range when the source knows it.
/// Its size is the track's rectangle (else the source's).
///
/// Written as `<VMFile id start duration scalar mediaStart mediaDuration
/// trackNumber src>` with parameters, attributes, screen metadata (once
/// set), transformer, links, effects and edges.
class VMFile : public VisualMedia, public FileRepresentation {
 public:
  /// Shows `mediaRange` of track `trackIndex` of `source`; at 0 on no track,
  /// scalar 1. Throws `KelMediaLibException` on a null source or a range the
  /// source can't show.
  static boost::shared_ptr<VMFile> create(Range<long long> mediaRange,
                                          boost::weak_ptr<const ThreadSafe> project,
                                          boost::shared_ptr<const Source> source,
                                          unsigned int trackIndex);

  /// The recording's cursor, windows and changed areas; null until set.
  boost::shared_ptr<const Attribute<boost::shared_ptr<const ScreenMetaData>>> screenMetaData()
      const {
    return screenMetaData_;
  }

  float width() const override;
  float height() const override;
  void dispatch(ConstMediaDispatcher& dispatcher) const override;

  void xmlName(Options& options) const override;
  void xmlAttributes(Options& options) const override;
  void xmlBody(Options& options, int depth) const override;

 protected:
  Media* copyKind() const override;
  void checkMediaTimeRange(long long mediaStart, long long mediaDuration) const override;

 private:
  VMFile(Range<long long> mediaRange, boost::weak_ptr<const ThreadSafe> project,
         boost::shared_ptr<const Source> source, unsigned int trackIndex);
  VMFile(const VMFile& other);

  boost::shared_ptr<Attribute<boost::shared_ptr<const ScreenMetaData>>> screenMetaData_;
};

}  // namespace KelMediaLib
