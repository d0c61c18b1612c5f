#include "values/Parameter.h"

#include "values/InterpolatingParam.h"
#include "values/LeftParameter.h"

namespace KelMediaLib {

std::mutex& companionMutex() {
  static std::mutex mutex;
  return mutex;
}

template class Parameter<double>;
template class Parameter<float>;
template class Parameter<int>;
template class Parameter<Point>;
template class Parameter<Color>;
template class Parameter<AudioPosition>;
template class Parameter<Rect<float>>;
template class Parameter<TransformMatrix>;
template class Parameter<std::string>;
template class Parameter<std::vector<Rect<float>>>;
template class Parameter<boost::shared_ptr<Interpolater<double>>>;
template class Parameter<boost::shared_ptr<Interpolater<float>>>;
template class Parameter<boost::shared_ptr<Interpolater<int>>>;
template class Parameter<boost::shared_ptr<Interpolater<Point>>>;
template class Parameter<boost::shared_ptr<Interpolater<Color>>>;
template class Parameter<boost::shared_ptr<Interpolater<AudioPosition>>>;
template class Parameter<boost::shared_ptr<Interpolater<TransformMatrix>>>;
template class Parameter<boost::shared_ptr<Interpolater<Rect<float>>>>;

template class InterpolatingParam<double>;
template class InterpolatingParam<float>;
template class InterpolatingParam<Point>;
template class InterpolatingParam<Color>;
template class InterpolatingParam<AudioPosition>;

template class LeftParameter<std::string>;

}  // namespace KelMediaLib
