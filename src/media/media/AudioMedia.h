#pragma once

#include "media/media/Media.h"
#include "values/InterpolatingParam.h"

#include <boost/shared_ptr.hpp>

namespace KelMediaLib {

template <class T>
class Attribute;

/// A media that sounds. Parameter "volume" (1); attributes "gain" (1),
/// "sampleRate" and "bitDepth" (those of its source track, else 0).
class AudioMedia : public Media {
 public:
  /// A constant factor on top of the animated volume.
  boost::shared_ptr<const Attribute<double>> gain() const { return gain_; }
  boost::shared_ptr<InterpolatingParam<double>> volume() const { return volume_; }
  /// Samples per second.
  boost::shared_ptr<const Attribute<unsigned int>> sampleRate() const { return sampleRate_; }
  boost::shared_ptr<const Attribute<unsigned int>> bitDepth() const { return bitDepth_; }

  bool isAudio() const override;

 protected:
  AudioMedia(boost::weak_ptr<const ThreadSafe> project, long long mediaStart,
             long long mediaDuration, unsigned int sampleRate, unsigned int bitDepth);
  /// Fresh parameter at rest, attributes with the values of `other`.
  AudioMedia(const AudioMedia& other);

 private:
  boost::shared_ptr<Attribute<double>> gain_;
  boost::shared_ptr<InterpolatingParam<double>> volume_;
  boost::shared_ptr<Attribute<unsigned int>> sampleRate_;
  boost::shared_ptr<Attribute<unsigned int>> bitDepth_;
};

}  // namespace KelMediaLib
