#pragma once

#include "core/KelObject.h"
#include "core/XMLIdentified.h"
#include "core/XMLable.h"
#include "values/Range.h"

#include <boost/optional.hpp>
#include <boost/shared_ptr.hpp>

namespace KelMediaLib {

class MediaFileStats;

/// A file of the source bin, described by its stats, which it shares.
///
/// Written as `<Source id src lastMod rect>` with one `<SourceTrack range
/// type editRate trackRect sampleRate bitDepth numChannels/>` per track;
/// "lastMod" is the UTC time of last change as "YYYYMMDDThhmmss".
class Source : public KelObject, public XMLable, public virtual XMLIdentified {
 public:
  /// Throws `KelMediaLibException` on null stats.
  static boost::shared_ptr<Source> create(boost::shared_ptr<MediaFileStats> stats);

  boost::shared_ptr<const MediaFileStats> mediaFileStats() const { return stats_; }
  /// The range of the track of that index, in source edit units; none when
  /// the stats have no such track.
  boost::optional<Range<long long>> trackRange(unsigned int trackIndex) const;

  void xmlName(Options& options) const override;
  void xmlAttributes(Options& options) const override;
  void xmlBody(Options& options, int depth) const override;

 private:
  explicit Source(boost::shared_ptr<MediaFileStats> stats);

  boost::shared_ptr<MediaFileStats> stats_;
};

}  // namespace KelMediaLib
