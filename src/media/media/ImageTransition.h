#pragma once

#include "media/media/VisualMedia.h"

#include <boost/shared_ptr.hpp>
#include <boost/weak_ptr.hpp>

namespace KelMediaLib {

/// A generated picture that bridges two media on a track (a wipe, a
/// dissolve); the renderer draws it. It is as large as the visual mixer of
/// its track, 0 by 0 while on none.
///
/// Written as `<ImageTransition id start duration>` with parameters,
/// attributes, effects and edges.
class ImageTransition : public VisualMedia {
 public:
  /// Throws `KelMediaLibException` on a negative duration.
  static boost::shared_ptr<ImageTransition> create(long long duration,
                                                   boost::weak_ptr<const ThreadSafe> project);

  float width() const override;
  float height() const override;
  bool isStill() const override;
  void dispatch(ConstMediaDispatcher& dispatcher) const override;

  void xmlName(Options& options) const override;
  void xmlAttributes(Options& options) const override;
  void xmlBody(Options& options, int depth) const override;

 protected:
  bool xmlDeclaresParameters() const override;
  Media* copyKind() const override;

 private:
  ImageTransition(long long duration, boost::weak_ptr<const ThreadSafe> project);
  ImageTransition(const ImageTransition& other);
};

}  // namespace KelMediaLib
