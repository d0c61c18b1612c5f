#pragma once

#include "media/media/Media.h"
#include "values/InterpolatingParam.h"
#include "values/Range.h"
#include "values/Rect.h"

#include <boost/shared_ptr.hpp>

namespace KelMediaLib {

class Transformer;
class VectorParam;

/// A media that shows a picture. Parameters: "opacity" (1), "sourceCrop0..3"
/// and "geometryCrop0..3" (left, top, right, bottom; 0), and the
/// transformer's "translation0".."shear2".
class VisualMedia : public Media {
 public:
  boost::shared_ptr<InterpolatingParam<double>> opacity() const { return opacity_; }
  /// The part of the source picture cut away before placing it.
  boost::shared_ptr<VectorParam> sourceCropParam() const { return sourceCrop_; }
  /// The part of the placed picture cut away.
  boost::shared_ptr<VectorParam> geometryCropParam() const { return geometryCrop_; }
  boost::shared_ptr<Transformer> transformer() const { return transformer_; }

  /// The picture's rectangle after the geometry crop at the media's own time
  /// `time`: (left, top, width - left - right, height - top - bottom).
  Rect<double> geometryCropRectAtTime(long long time) const;
  /// The picture's size in pixels.
  virtual float width() const = 0;
  virtual float height() const = 0;
  /// The stretch of the source shown, (mediaStart, mediaDuration), in
  /// parameter time.
  virtual Range<double> sourceRange() const;

 protected:
  VisualMedia(boost::weak_ptr<const ThreadSafe> project, long long mediaStart,
              long long mediaDuration);
  /// Fresh parameters at rest; `clone` copies the key frames.
  VisualMedia(const VisualMedia& other);

  /// The three visual parameters' elements, for `<Parameters>`.
  std::vector<const XMLable*> visualParameters() const;

 private:
  void makeParameters();

  boost::shared_ptr<InterpolatingParam<double>> opacity_;
  boost::shared_ptr<VectorParam> sourceCrop_;
  boost::shared_ptr<VectorParam> geometryCrop_;
  boost::shared_ptr<Transformer> transformer_;
};

}  // namespace KelMediaLib
