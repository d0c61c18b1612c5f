#pragma once

#include "core/XMLIdentified.h"
#include "media/timeline/Mixer.h"

#include <boost/shared_ptr.hpp>

namespace KelMediaLib {

template <class T>
class Attribute;

/// The mixer of sound, with the format it mixes to: "sampleRate" (per
/// second), "bitDepth" and "numChannels".
///
/// Written as `<AudioMixer id>` with attributes and tracks.
class AudioMixer : public Mixer, public virtual XMLIdentified {
 public:
  static boost::shared_ptr<AudioMixer> create(unsigned int sampleRate, unsigned int bitDepth,
                                              unsigned int numChannels,
                                              boost::weak_ptr<const ThreadSafe> project);

  boost::shared_ptr<const Attribute<unsigned int>> attributeSampleRate() const {
    return sampleRate_;
  }
  boost::shared_ptr<const Attribute<unsigned int>> attributeBitDepth() const { return bitDepth_; }
  boost::shared_ptr<const Attribute<unsigned int>> attributeNumChannels() const {
    return numChannels_;
  }

  /// Audio tracks.
  bool acceptsTrack(const Track& track) const override;
  /// An `AudioTrack`.
  boost::shared_ptr<Track> makeTrack(boost::weak_ptr<const ThreadSafe> project) const override;

  void xmlName(Options& options) const override;
  void xmlAttributes(Options& options) const override;
  void xmlBody(Options& options, int depth) const override;

 private:
  AudioMixer(unsigned int sampleRate, unsigned int bitDepth, unsigned int numChannels,
             boost::weak_ptr<const ThreadSafe> project);

  boost::shared_ptr<Attribute<unsigned int>> sampleRate_;
  boost::shared_ptr<Attribute<unsigned int>> bitDepth_;
  boost::shared_ptr<Attribute<unsigned int>> numChannels_;
};

}  // namespace KelMediaLib
