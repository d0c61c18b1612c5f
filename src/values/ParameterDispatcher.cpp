#include "values/ParameterDispatcher.h"

namespace KelMediaLib {

ParameterDispatcher::~ParameterDispatcher() = default;

void ParameterDispatcher::receive(const boost::shared_ptr<Parameter<double>>&) {}

void ParameterDispatcher::receive(const boost::shared_ptr<Parameter<float>>&) {}

void ParameterDispatcher::receive(const boost::shared_ptr<Parameter<int>>&) {}

void ParameterDispatcher::receive(const boost::shared_ptr<Parameter<Point>>&) {}

void ParameterDispatcher::receive(const boost::shared_ptr<Parameter<Color>>&) {}

void ParameterDispatcher::receive(const boost::shared_ptr<Parameter<AudioPosition>>&) {}

void ParameterDispatcher::receive(const boost::shared_ptr<Parameter<Rect<float>>>&) {}

void ParameterDispatcher::receive(const boost::shared_ptr<Parameter<TransformMatrix>>&) {}

void ParameterDispatcher::receive(const boost::shared_ptr<Parameter<std::string>>&) {}

void ParameterDispatcher::receive(const boost::shared_ptr<Parameter<std::vector<Rect<float>>>>&) {}

void ParameterDispatcher::receive(const boost::shared_ptr<Parameter<boost::shared_ptr<IMFile>>>&) {}

void ParameterDispatcher::receive(
    const boost::shared_ptr<Parameter<boost::shared_ptr<Interpolater<int>>>>&) {}

void ParameterDispatcher::receive(
    const boost::shared_ptr<Parameter<boost::shared_ptr<Interpolater<float>>>>&) {}

void ParameterDispatcher::receive(
    const boost::shared_ptr<Parameter<boost::shared_ptr<Interpolater<double>>>>&) {}

void ParameterDispatcher::receive(
    const boost::shared_ptr<Parameter<boost::shared_ptr<Interpolater<Point>>>>&) {}

void ParameterDispatcher::receive(
    const boost::shared_ptr<Parameter<boost::shared_ptr<Interpolater<Color>>>>&) {}

void ParameterDispatcher::receive(
    const boost::shared_ptr<Parameter<boost::shared_ptr<Interpolater<AudioPosition>>>>&) {}

void ParameterDispatcher::receive(
    const boost::shared_ptr<Parameter<boost::shared_ptr<Interpolater<TransformMatrix>>>>&) {}

void ParameterDispatcher::receive(
    const boost::shared_ptr<Parameter<boost::shared_ptr<Interpolater<Rect<float>>>>>&) {}

}  // namespace KelMediaLib
