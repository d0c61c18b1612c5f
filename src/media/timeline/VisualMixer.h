#pragma once

#include "media/timeline/Mixer.h"
#include "values/InterpolatingParam.h"
#include "values/Parametric.h"

#include <boost/shared_ptr.hpp>

namespace KelMediaLib {

template <class T>
class Attribute;
class Transformer;
class VectorParam;

/// The mixer of pictures: a canvas of "width" by "height" pixels, seen by a
/// camera, with a transformer that places the whole composition.
///
/// Camera parameters and their rest values, in the canvas's units, origin
/// at the canvas's centre:
/// - "eyePosition0..2" (0, 0, 1000): in front of the canvas;
/// - "eyeLookAtPosition0..2" (0, 0, 0): its centre;
/// - "eyeUpVector0..2" (0, 1, 0);
/// - "fov" 45 degrees (vertical), "nearClipDistance" 1,
///   "farClipDistance" 10000.
///
/// Written as `<VisualMixer id>` with attributes, parameters, transformer
/// and tracks.
class VisualMixer : public Mixer, public Parametric {
 public:
  /// Throws `KelMediaLibException` on a negative or non-finite size.
  static boost::shared_ptr<VisualMixer> create(float width, float height,
                                               boost::weak_ptr<const ThreadSafe> project);

  boost::shared_ptr<const Attribute<float>> attributeWidth() const { return width_; }
  boost::shared_ptr<const Attribute<float>> attributeHeight() const { return height_; }
  boost::shared_ptr<Transformer> transformer() const { return transformer_; }
  boost::shared_ptr<VectorParam> eyePositionParam() const { return eyePosition_; }
  boost::shared_ptr<VectorParam> eyeLookAtPositionParam() const { return eyeLookAt_; }
  boost::shared_ptr<VectorParam> eyeUpVectorParam() const { return eyeUp_; }
  boost::shared_ptr<InterpolatingParam<float>> fovParam() const { return fov_; }
  boost::shared_ptr<InterpolatingParam<float>> nearClipDistanceParam() const { return near_; }
  boost::shared_ptr<InterpolatingParam<float>> farClipDistanceParam() const { return far_; }

  /// Visual tracks (image tracks among them).
  bool acceptsTrack(const Track& track) const override;
  /// A `VisualTrack`.
  boost::shared_ptr<Track> makeTrack(boost::weak_ptr<const ThreadSafe> project) const override;

  void xmlName(Options& options) const override;
  void xmlAttributes(Options& options) const override;
  void xmlBody(Options& options, int depth) const override;

 private:
  VisualMixer(float width, float height, boost::weak_ptr<const ThreadSafe> project);

  boost::shared_ptr<Attribute<float>> width_;
  boost::shared_ptr<Attribute<float>> height_;
  boost::shared_ptr<Transformer> transformer_;
  boost::shared_ptr<VectorParam> eyePosition_;
  boost::shared_ptr<VectorParam> eyeLookAt_;
  boost::shared_ptr<VectorParam> eyeUp_;
  boost::shared_ptr<InterpolatingParam<float>> fov_;
  boost::shared_ptr<InterpolatingParam<float>> near_;
  boost::shared_ptr<InterpolatingParam<float>> far_;
};

}  // namespace KelMediaLib
