#pragma once

#include "values/Interpolater.h"
#include "core/Observer.h"
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
    {
      const CompanionEdit edit(*this);
      interpolaters_->copyKeyFramesFrom(*typed->interpolaters_);
    }
    Parameter<T>::copyKeyFramesFrom(source);
  }

  /// The companion's key frame at `oldTime`, the interpolater of the stretch
  /// that starts there, goes along to `newTime`; one the companion holds at
  /// `newTime` already stays, and the travelling one with it. A refused
  /// move changes neither.
  void moveKeyFrame(long long oldTime, long long newTime) override {
    if (!this->hasKeyFrameAt(oldTime)) {
      Parameter<T>::moveKeyFrame(oldTime, newTime);  // throws: nothing there
    }
    if (oldTime != newTime && this->hasKeyFrameAt(newTime)) {
      Parameter<T>::moveKeyFrame(oldTime, newTime);  // throws: the place is taken
    }
    if (oldTime != newTime && interpolaters_->hasKeyFrameAt(oldTime) &&
        !interpolaters_->hasKeyFrameAt(newTime)) {
      const CompanionEdit edit(*this);
      interpolaters_->moveKeyFrame(oldTime, newTime);
    }
    Parameter<T>::moveKeyFrame(oldTime, newTime);
  }

  /// The companion's key frame at `time` goes with the key frame, unless it
  /// is the companion's last (it then speaks for the whole parameter).
  T removeKeyFrame(long long time) override {
    if (!this->hasKeyFrameAt(time)) {
      return Parameter<T>::removeKeyFrame(time);  // throws: nothing there
    }
    if (interpolaters_->hasKeyFrameAt(time) && interpolaters_->numKeyFrames() > 1) {
      const CompanionEdit edit(*this);
      interpolaters_->removeKeyFrame(time);
    }
    return Parameter<T>::removeKeyFrame(time);
  }

  ~InterpolatingParam() override { interpolaters_->detach(&relay_); }

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
            boost::shared_ptr<Interpolater<T>>(LinearInterpolater<T>::getInstance()))),
        relay_(*this) {
    interpolaters_->attach(&relay_);
  }

 private:
  class CompanionRelay : public Observer {
   public:
    explicit CompanionRelay(const InterpolatingParam& owner) : owner_(owner) {}
    // Observers of the parameter learn of the companion's edits too: its
    // interpolaters change the parameter's values. Not while the parameter
    // itself notifies (an observer that keeps the companion in step from its
    // notification would be called back inside it) nor while it edits the
    // companion as part of its own edit, which notifies once when whole.
    void observerUpdate() override {
      if (!owner_.notifying() && !owner_.editingCompanion_) {
        owner_.notify();
      }
    }

   private:
    const InterpolatingParam& owner_;
  };

  /// Marks an edit of the companion made by the parameter itself.
  class CompanionEdit {
   public:
    explicit CompanionEdit(const InterpolatingParam& owner)
        : owner_(owner), was_(owner.editingCompanion_) {
      owner_.editingCompanion_ = true;
    }
    ~CompanionEdit() { owner_.editingCompanion_ = was_; }
    CompanionEdit(const CompanionEdit&) = delete;
    CompanionEdit& operator=(const CompanionEdit&) = delete;

   private:
    const InterpolatingParam& owner_;
    bool was_;
  };

  boost::shared_ptr<InterpolaterParameter> interpolaters_;
  CompanionRelay relay_;
  mutable bool editingCompanion_ = false;
};

extern template class InterpolatingParam<double>;
extern template class InterpolatingParam<float>;
extern template class InterpolatingParam<Point>;
extern template class InterpolatingParam<Color>;
extern template class InterpolatingParam<AudioPosition>;

}  // namespace KelMediaLib
