#include "actions/InterpolaterRange.h"

#include "actions/OrvException.h"

#include <utility>

namespace OrvMediaLib {

InterpolaterRange::InterpolaterRange(boost::shared_ptr<const InterpolaterParameter> parameter,
                                     boost::shared_ptr<const InterpolaterKeyFrame> keyframe)
    : parameter_(std::move(parameter)), keyframe_(std::move(keyframe)) {
  if (!parameter_ || !keyframe_) {
    throw OrvException("an interpolater range needs a parameter and a key frame");
  }
}

}  // namespace OrvMediaLib
