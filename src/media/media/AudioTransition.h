#pragma once

#include "media/media/AudioMedia.h"

#include <boost/shared_ptr.hpp>
#include <boost/weak_ptr.hpp>

namespace KelMediaLib {

/// A generated sound that bridges two media on an audio track (a cross
/// fade); the renderer mixes it. The project file has no element for it: it
/// writes itself as `<AudioTransition id start duration/>`, which a reader
/// of the file refuses.
class AudioTransition : public AudioMedia {
 public:
  /// Throws `KelMediaLibException` on a negative duration.
  static boost::shared_ptr<AudioTransition> create(long long duration,
                                                   boost::weak_ptr<const ThreadSafe> project);

  void dispatch(ConstMediaDispatcher& dispatcher) const override;

  void xmlName(Options& options) const override;
  void xmlAttributes(Options& options) const override;

 protected:
  bool xmlHasBody() const override { return false; }
  Media* copyKind() const override;

 private:
  AudioTransition(long long duration, boost::weak_ptr<const ThreadSafe> project);
  AudioTransition(const AudioTransition& other);
};

}  // namespace KelMediaLib
