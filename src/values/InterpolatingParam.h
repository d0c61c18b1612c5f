#pragma once

#include "values/Interpolater.h"
#include "core/Observer.h"
#include "core/XMLText.h"
#include "values/Parameter.h"

#include <boost/shared_ptr.hpp>

#include <atomic>
#include <mutex>
#include <string>

namespace KelMediaLib {

/// Guards the making of interpolating parameters' companions.
std::mutex& companionMutex();

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
    const Companion* made = existingCompanion();
    boost::shared_ptr<Interpolater<T>> interpolater =
        made ? made->parameter->valueAt(static_cast<double>(left->first)) : nullptr;
    if (!interpolater) {
      interpolater = LinearInterpolater<T>::getInstance();
    }
    return interpolater->interpolate(left->second->value(), right->second->value(), fraction);
  }

  /// The companion; a parameter makes it when first asked (see
  /// `releaseCompanionAtRest`). Safe from readers on several threads.
  boost::shared_ptr<InterpolaterParameter> interpolaterParameter() const override {
    return companion().parameter;
  }

  /// Frees the companion when it is at rest (the linear interpolater alone,
  /// at 0) and nothing but this parameter holds it or its key frame, and no
  /// journal that keeps states is open: a parameter that never needed other
  /// interpolaters then costs no companion, which is made again, at rest,
  /// when next asked for. The reader calls it on each parameter it reads.
  /// Takes no lock: call it where no other thread can reach the parameter.
  void releaseCompanionAtRest() {
    const Companion* made = existingCompanion();
    const EditJournal* journal = EditJournal::current();
    if (!made || (journal && journal->keeps()) || made->parameter.use_count() != 1 ||
        made->parameter->numObservers() != 1 || made->parameter->numKeyFrames() != 1) {
      return;
    }
    const auto rest = made->parameter->keyFrame(0);
    if (rest && rest.use_count() == 2 && rest->holders().empty() &&
        rest->value() == LinearInterpolater<T>::getInstance()) {
      companion_.store(nullptr, std::memory_order_relaxed);
      delete made;
    }
  }

  void copyKeyFramesFrom(const ParameterInterface& source) override {
    const InterpolatingParam<T>* typed = dynamic_cast<const InterpolatingParam<T>*>(&source);
    if (!typed) {
      throw KelMediaLibException("parameter \"" + this->name() +
                                 "\": can't copy the key frames of \"" + source.name() +
                                 "\", which isn't an interpolating parameter of the same type");
    }
    if (existingCompanion() || typed->existingCompanion()) {
      const CompanionEdit edit(companion());
      edit.parameter().copyKeyFramesFrom(*typed->companion().parameter);
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
    if (oldTime != newTime && companionHasKeyFrameAt(oldTime) && !companionHasKeyFrameAt(newTime)) {
      const CompanionEdit edit(companion());
      edit.parameter().moveKeyFrame(oldTime, newTime);
    }
    Parameter<T>::moveKeyFrame(oldTime, newTime);
  }

  /// The companion's key frame at `time` goes with the key frame, unless it
  /// is the companion's last (it then speaks for the whole parameter).
  T removeKeyFrame(long long time) override {
    if (!this->hasKeyFrameAt(time)) {
      return Parameter<T>::removeKeyFrame(time);  // throws: nothing there
    }
    const Companion* made = existingCompanion();
    if (made && made->parameter->hasKeyFrameAt(time) && made->parameter->numKeyFrames() > 1) {
      const CompanionEdit edit(*made);
      edit.parameter().removeKeyFrame(time);
    }
    return Parameter<T>::removeKeyFrame(time);
  }

  ~InterpolatingParam() override { delete existingCompanion(); }

  /// `<InterpolatingParam id=".." name="..">` with the companion and the key frames.
  void xmlName(XMLable::Options& options) const override {
    writeLiteral(options.out, "InterpolatingParam");
  }
  void xmlBody(XMLable::Options& options, int depth) const override {
    XMLLine line(options.out);
    line.indent(depth);
    line.literal("<Parameters>\n");
    if (const Companion* made = existingCompanion()) {
      line.flush();
      made->parameter->toXML(options, depth + 1, std::string());
    } else {
      writeCompanionAtRest(line, options.newIdent(), depth + 1);
    }
    line.indent(depth);
    line.literal("</Parameters>\n");
    this->writeKeyFrames(line, depth);
    line.flush();
  }

 protected:
  InterpolatingParam(boost::weak_ptr<const ThreadSafe> project, const std::string& name,
                     const T& defaultValue)
      : Parameter<T>(project, name, defaultValue) {}

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
      if (!owner_.notifying() && !editing) {
        owner_.notify();
      }
    }

    // Set while the parameter edits the companion.
    mutable bool editing = false;

   private:
    const InterpolatingParam& owner_;
  };

  /// The companion and the relay attached to it, made together.
  struct Companion {
    explicit Companion(const InterpolatingParam& owner)
        : parameter(InterpolaterParameter::create(
              owner.projectMutex(), "interpolater",
              boost::shared_ptr<Interpolater<T>>(LinearInterpolater<T>::getInstance()))),
          relay(owner) {
      parameter->attach(&relay);
    }
    ~Companion() { parameter->detach(&relay); }
    Companion(const Companion&) = delete;
    Companion& operator=(const Companion&) = delete;

    const boost::shared_ptr<InterpolaterParameter> parameter;
    CompanionRelay relay;
  };

  /// Marks an edit of the companion made by the parameter itself.
  class CompanionEdit {
   public:
    explicit CompanionEdit(const Companion& companion)
        : companion_(companion), was_(companion.relay.editing) {
      companion_.relay.editing = true;
    }
    ~CompanionEdit() { companion_.relay.editing = was_; }
    CompanionEdit(const CompanionEdit&) = delete;
    CompanionEdit& operator=(const CompanionEdit&) = delete;

    InterpolaterParameter& parameter() const { return *companion_.parameter; }

   private:
    const Companion& companion_;
    bool was_;
  };

  const Companion* existingCompanion() const { return companion_.load(std::memory_order_acquire); }

  // Made under one lock for all parameters: it happens once a parameter, and
  // readers holding the project's read lock may ask for it together.
  const Companion& companion() const {
    if (const Companion* made = existingCompanion()) {
      return *made;
    }
    const std::lock_guard<std::mutex> lock(companionMutex());
    const Companion* made = companion_.load(std::memory_order_relaxed);
    if (!made) {
      made = new Companion(*this);
      companion_.store(made, std::memory_order_release);
    }
    return *made;
  }

  // A companion not yet made stands for one at rest: a key frame at 0.
  bool companionHasKeyFrameAt(long long time) const {
    const Companion* made = existingCompanion();
    return made ? made->parameter->hasKeyFrameAt(time) : time == 0;
  }

  // What the companion at rest writes, its ident a new one, as the
  // companion's own would be: nothing else names a companion.
  static void writeCompanionAtRest(XMLLine& line, unsigned int ident, int depth) {
    line.indent(depth);
    line.literal("<Parameter id=\"");
    line.value(ident);
    line.literal("\" name=\"interpolater\">\n");
    line.indent(depth + 1);
    line.literal("<Keyframes>\n");
    InterpolaterParameter::writeKeyFrame(
        line, depth + 2, 0,
        boost::shared_ptr<Interpolater<T>>(LinearInterpolater<T>::getInstance()));
    line.indent(depth + 1);
    line.literal("</Keyframes>\n");
    line.indent(depth);
    line.literal("</Parameter>\n");
  }

  mutable std::atomic<const Companion*> companion_{nullptr};
};

extern template class InterpolatingParam<double>;
extern template class InterpolatingParam<float>;
extern template class InterpolatingParam<Point>;
extern template class InterpolatingParam<Color>;
extern template class InterpolatingParam<AudioPosition>;

}  // namespace KelMediaLib
