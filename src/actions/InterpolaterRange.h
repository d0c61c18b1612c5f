#pragma once

#include "values/Interpolater.h"
#include "values/KeyFrame.h"

#include <boost/shared_ptr.hpp>

namespace KelMediaLib {
template <class T>
class Parameter;
}

namespace OrvMediaLib {

/// The interpolater that a `ParameterRange` asks for: a key frame of a
/// parameter's companion (the parameter that holds its interpolaters), at
/// the range's left time. The key frame isn't required to be in the
/// companion yet: it goes in with the range's key frames.
class InterpolaterRange {
 public:
  typedef KelMediaLib::Parameter<boost::shared_ptr<KelMediaLib::Interpolater<double>>>
      InterpolaterParameter;
  typedef KelMediaLib::KeyFrame<boost::shared_ptr<KelMediaLib::Interpolater<double>>>
      InterpolaterKeyFrame;

  /// Throws `OrvException` if either pointer is null.
  InterpolaterRange(boost::shared_ptr<const InterpolaterParameter> parameter,
                    boost::shared_ptr<const InterpolaterKeyFrame> keyframe);

  /// The companion parameter.
  boost::shared_ptr<const InterpolaterParameter> parameter() const { return parameter_; }
  /// The companion's key frame; its time is key frame time.
  boost::shared_ptr<const InterpolaterKeyFrame> keyframe() const { return keyframe_; }

 private:
  boost::shared_ptr<const InterpolaterParameter> parameter_;
  boost::shared_ptr<const InterpolaterKeyFrame> keyframe_;
};

}  // namespace OrvMediaLib
