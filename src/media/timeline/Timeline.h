#pragma once

#include "core/KelObject.h"
#include "core/XMLable.h"

#include <boost/shared_ptr.hpp>

#include <vector>

namespace KelMediaLib {

class AudioMixer;
class Media;
class VisualMixer;

/// The two mixers of a project; either may be missing. Owns them.
///
/// Written as `<Timeline>` with the visual mixer, then the audio mixer.
class Timeline : public KelObject, public XMLable {
 public:
  static boost::shared_ptr<Timeline> create();

  boost::shared_ptr<VisualMixer> visualMixer() const { return visualMixer_; }
  boost::shared_ptr<AudioMixer> audioMixer() const { return audioMixer_; }
  /// Installs a mixer (null removes it); the project's business.
  void setVisualMixer(boost::shared_ptr<VisualMixer> mixer) { visualMixer_ = mixer; }
  void setAudioMixer(boost::shared_ptr<AudioMixer> mixer) { audioMixer_ = mixer; }

  /// A new list of every media: the visual mixer's first, then the audio
  /// mixer's; within a mixer track by track in order, each in start order.
  std::vector<boost::shared_ptr<const Media>> allMedias() const;

  void xmlName(Options& options) const override;
  void xmlBody(Options& options, int depth) const override;

 protected:
  bool xmlHasAttributes() const override { return false; }

 private:
  Timeline();

  boost::shared_ptr<VisualMixer> visualMixer_;
  boost::shared_ptr<AudioMixer> audioMixer_;
};

}  // namespace KelMediaLib
