#pragma once

#include "core/ProjectEditRate.h"
#include "media/media/FileRepresentation.h"
#include "media/media/VisualMedia.h"
#include "values/Parameter.h"

#include <boost/shared_ptr.hpp>
#include <boost/weak_ptr.hpp>

namespace KelMediaLib {

/// A still image from a file, shown for as long as it stands on its track.
/// No source bounds: it may be trimmed and extended freely. Its size is the
/// source track's rectangle (else the source's).
///
/// Written as `<IMFile id start duration scalar mediaStart mediaDuration
/// trackNumber src trimStartSum>`. "mediaStart" is the start before any
/// start trim, so that a reader that replays "trimStartSum" ends where the
/// media stood.
class IMFile : public VisualMedia, public FileRepresentation {
 public:
  /// An image whose source stretch starts at `mediaStart` and lasts
  /// `duration`; at 0 on no track. Throws on a null source or a negative
  /// duration.
  static boost::shared_ptr<IMFile> create(long long mediaStart, long long duration,
                                          boost::weak_ptr<const ThreadSafe> project,
                                          boost::shared_ptr<const Source> source,
                                          unsigned int trackIndex);

  /// How long a still lasts when it comes from its source, having no length
  /// of its own: 5 seconds, as editors commonly place pictures, in edit
  /// units of `rate` (150 at 30/1). Throws `KelMediaLibException` on a rate
  /// of 0.
  static long long defaultDuration(const EditRate& rate);

  float width() const override;
  float height() const override;
  bool isStill() const override;
  void dispatch(ConstMediaDispatcher& dispatcher) const override;

  void xmlName(Options& options) const override;
  void xmlAttributes(Options& options) const override;
  void xmlBody(Options& options, int depth) const override;

 protected:
  Media* copyKind() const override;

 private:
  IMFile(long long mediaStart, long long duration, boost::weak_ptr<const ThreadSafe> project,
         boost::shared_ptr<const Source> source, unsigned int trackIndex);
  IMFile(const IMFile& other);
};

extern template class Parameter<boost::shared_ptr<IMFile>>;

}  // namespace KelMediaLib
