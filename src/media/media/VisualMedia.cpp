#include "media/media/VisualMedia.h"

#include "media/media/Transformer.h"
#include "values/VectorParam.h"

namespace KelMediaLib {

VisualMedia::VisualMedia(boost::weak_ptr<const ThreadSafe> project, long long mediaStart,
                         long long mediaDuration)
    : Media(project, mediaStart, mediaDuration) {
  makeParameters();
}

VisualMedia::VisualMedia(const VisualMedia& other) : Media(other) {
  makeParameters();
}

void VisualMedia::makeParameters() {
  const boost::weak_ptr<const ThreadSafe> project = projectMutex();
  opacity_ = InterpolatingParam<double>::create(project, "opacity", 1.0);
  sourceCrop_ = VectorParam::create(project, "sourceCrop", {0.0, 0.0, 0.0, 0.0});
  geometryCrop_ = VectorParam::create(project, "geometryCrop", {0.0, 0.0, 0.0, 0.0});
  transformer_ = Transformer::create(project);
  registerParameter(opacity_);
  registerVector(*sourceCrop_);
  registerVector(*geometryCrop_);
  for (const boost::shared_ptr<VectorParam>& vector : transformer_->vectors()) {
    registerVector(*vector);
  }
}

Rect<double> VisualMedia::geometryCropRectAtTime(long long time) const {
  const std::vector<double> crop =
      geometryCrop_->valueAt(toParameterTime(static_cast<double>(time)));
  return Rect<double>(crop[0], crop[1], static_cast<double>(width()) - crop[0] - crop[2],
                      static_cast<double>(height()) - crop[1] - crop[3]);
}

Range<double> VisualMedia::sourceRange() const {
  const Range<long long> stretch = mediaTimeRange();
  return Range<double>(static_cast<double>(stretch.start), static_cast<double>(stretch.duration));
}

std::vector<const XMLable*> VisualMedia::visualParameters() const {
  return {sourceCrop_.get(), geometryCrop_.get(), opacity_.get()};
}

}  // namespace KelMediaLib
