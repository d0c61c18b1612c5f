#pragma once

#include "values/Interpolater.h"
#include "core/XMLText.h"
#include "values/Parameter.h"

#include <boost/shared_ptr.hpp>

#include <string>

namespace KelMediaLib {

/// A parameter that moves smoothly between its key frames. Its companion
/// parameter, "interpolater", holds at a key frame's time the interpolater
/// that runs from that key frame to the next one (the companion's last key
/// frame at or before that time, or else its first). Born with the linear
/// interpolater in the companion's one key frame at time 0.
template <class T>
class InterpolatingParam : public Parameter<T> {
 public:
  typedef typename Parameter<T>::InterpolaterParameter InterpolaterParameter;

  static boost::shared_ptr<InterpolatingParam<T>> create(boost::weak_ptr<const ThreadSafe> project,
                                                         const std::string& name,
                                                         const T& defaultValue) {
    return boost::shared_ptr<InterpolatingParam<T>>(
        new InterpolatingParam<T>(project, name, defaultValue));
  }

  T valueAt(double time) const override {
    const auto& frames = this->keyFrameMap();
    const auto left = this->atOrBefore(time);
    if (left == frames.end()) {
      return frames.empty() ? this->defaultValue() : frames.begin()->second->value();
    }
    const auto right = std::next(left);
    if (right == frames.end() || time == static_cast<double>(left->first)) {
      return left->second->value();
    }
    // The span is taken in double: key frames far apart (at the ends of the
    // 64-bit axis) would overflow a 64-bit difference.
    const double fraction = (time - static_cast<double>(left->first)) /
                            (static_cast<double>(right->first) - static_cast<double>(left->first));
    boost::shared_ptr<Interpolater<T>> interpolater =
        interpolaters_->valueAt(static_cast<double>(left->first));
    if (!interpolater) {
      interpolater = LinearInterpolater<T>::getInstance();
    }
    return interpolater->interpolate(left->second->value(), right->second->value(), fraction);
  }

  boost::shared_ptr<InterpolaterParameter> interpolaterParameter() const override {
    return interpolaters_;
  }

  void copyKeyFramesFrom(const ParameterInterface& source) override {
    const InterpolatingParam<T>* typed = dynamic_cast<const InterpolatingParam<T>*>(&source);
    if (!typed) {
      throw KelMediaLibException("parameter \"" + this->name() +
                                 "\": can't copy the key frames of \"" + source.name() +
                                 "\", which isn't an interpolating parameter of the same type");
    }
    interpolaters_->copyKeyFramesFrom(*typed->interpolaters_);
    Parameter<T>::copyKeyFramesFrom(source);
  }

  /// `<InterpolatingParam id=".." name="..">` with the companion and the key frames.
  void xmlName(XMLable::Options& options) const override {
    writeLiteral(options.out, "InterpolatingParam");
  }
  void xmlBody(XMLable::Options& options, int depth) const override {
    writeIndent(options.out, depth);
    writeLiteral(options.out, "<Parameters>\n");
    interpolaters_->toXML(options, depth + 1, std::string());
    writeIndent(options.out, depth);
    writeLiteral(options.out, "</Parameters>\n");
    this->writeKeyFrames(options, depth);
  }

 protected:
  InterpolatingParam(boost::weak_ptr<const ThreadSafe> project, const std::string& name,
                     const T& defaultValue)
      : Parameter<T>(project, name, defaultValue),
        interpolaters_(InterpolaterParameter::create(
            project, "interpolater",
            boost::shared_ptr<Interpolater<T>>(LinearInterpolater<T>::getInstance()))) {}

 private:
  boost::shared_ptr<InterpolaterParameter> interpolaters_;
};

extern template class InterpolatingParam<double>;
extern template class InterpolatingParam<float>;
extern template class InterpolatingParam<Point>;
extern template class InterpolatingParam<Color>;
extern template class InterpolatingParam<AudioPosition>;

}  // namespace KelMediaLib
