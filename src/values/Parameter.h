#pragma once

#include "core/EditJournal.h"
#include "core/Identified.h"
#include "core/KelMediaLibException.h"
#include "core/Observer.h"
#include "core/SubProject.h"
#include "core/XMLText.h"
#include "values/AudioPosition.h"
#include "values/Color.h"
#include "values/Interpolater.h"
#include "values/KeyFrame.h"
#include "values/KeyFrameStore.h"
#include "values/ParameterDispatcher.h"
#include "values/ParameterInterface.h"
#include "values/ParameterIterator.h"
#include "values/Point.h"
#include "values/Rect.h"
#include "values/TransformMatrix.h"
#include "values/ValueText.h"

#include <boost/enable_shared_from_this.hpp>
#include <boost/make_shared.hpp>
#include <boost/pointer_cast.hpp>
#include <boost/shared_ptr.hpp>
#include <boost/weak_ptr.hpp>

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <limits>
#include <optional>
#include <ostream>
#include <string>
#include <unordered_set>
#include <vector>

namespace KelMediaLib {

class IMFile;
class ThreadSafe;

/// Writes the ident of the image media that a key frame names; defined with
/// the media model.
void writeXMLValue(std::ostream& out, const boost::shared_ptr<IMFile>& image);

/// A value that varies over the time of its owner, given by key frames: an
/// ordered set with at most one key frame per time.
///
/// - A parameter is born with its default value in one key frame at time 0.
/// - Times are on the parameter's own axis (see `Parametric`).
/// - Between key frames a plain parameter holds the value of the key frame on
///   the left; before the first and after the last it has the value of that
///   key frame; with no key frame at all, its default value.
/// - Key frames are shared objects: whoever holds one sees it move and change.
/// - Every change tells the observers once, after it is complete: those
///   attached with `attach` of every change, those attached with
///   `attachConcerned` (ranges, which hold key frames) only when the change
///   concerns a key frame they hold: the key frame changed, added, removed or
///   moved, or the one after it (whose left neighbour it is). An edit at a
///   time without a key frame, or a move onto a time that holds one, throws
///   `KelMediaLibException` and changes nothing.
/// - Lookups, edits and neighbour queries cost O(log n).
///
/// Parameters are made by `create` and held by shared pointer; they belong to
/// a project, whose lock readers on other threads take (see `begin`).
template <class T>
class Parameter : public SubProject,
                  public ParameterInterface,
                  public Identified,
                  public boost::enable_shared_from_this<Parameter<T>> {
 public:
  typedef T value_type;
  typedef KeyFrame<T> KeyFrameType;
  typedef boost::shared_ptr<const KeyFrame<T>> KeyFramePtr;
  typedef Parameter<boost::shared_ptr<Interpolater<T>>> InterpolaterParameter;
  typedef ParameterIterator<T> const_iterator;

  static boost::shared_ptr<Parameter<T>> create(boost::weak_ptr<const ThreadSafe> project,
                                                const std::string& name, const T& defaultValue) {
    return boost::shared_ptr<Parameter<T>>(new Parameter<T>(project, name, defaultValue));
  }

  ~Parameter() override = default;

  const std::string& name() const override { return Identified::name(); }
  const T& defaultValue() const { return default_; }

  /// The value at `time` (a double on the parameter's axis).
  virtual T valueAt(double time) const {
    const auto left = atOrBefore(time);
    if (left == keyFrames_.end()) {
      return keyFrames_.empty() ? default_ : keyFrames_.begin()->second->value();
    }
    return left->second->value();
  }

  unsigned int numKeyFrames() const override {
    return static_cast<unsigned int>(keyFrames_.size());
  }
  long long firstKeyFrameTime() const override {
    return keyFrames_.empty() ? std::numeric_limits<long long>::max() : keyFrames_.begin()->first;
  }
  long long lastKeyFrameTime() const override {
    return keyFrames_.empty() ? std::numeric_limits<long long>::min() : keyFrames_.rbegin()->first;
  }
  bool hasKeyFrameAt(long long time) const override { return keyFrames_.count(time) != 0; }

  /// The key frame object at exactly `time`; null if there is none.
  KeyFramePtr keyFrame(long long time) const {
    const auto found = keyFrames_.find(time);
    return found == keyFrames_.end() ? KeyFramePtr() : KeyFramePtr(found->second);
  }

  long long prevKeyFrameTime(long long time) const override {
    auto it = keyFrames_.lower_bound(time);
    if (it == keyFrames_.begin()) {
      return std::numeric_limits<long long>::min();
    }
    return (--it)->first;
  }
  long long nextKeyFrameTime(long long time) const override {
    const auto it = keyFrames_.upper_bound(time);
    return it == keyFrames_.end() ? std::numeric_limits<long long>::max() : it->first;
  }

  std::vector<long long> keyFrameTimes() const override {
    std::vector<long long> times;
    times.reserve(keyFrames_.size());
    for (const auto& entry : keyFrames_) {
      times.push_back(entry.first);
    }
    return times;
  }

  /// The key frames in time order.
  std::vector<KeyFramePtr> keyFrames() const {
    std::vector<KeyFramePtr> frames;
    frames.reserve(keyFrames_.size());
    for (const auto& entry : keyFrames_) {
      frames.push_back(entry.second);
    }
    return frames;
  }

  /// Adds a new key frame; one that stood at `time` is replaced.
  virtual void addKeyFrame(long long time, const T& value) {
    journalKeyFrame(time);
    put(time, boost::make_shared<KeyFrame<T>>(time, value));
  }

  /// Adds this very object at its own time, so that the caller and the
  /// parameter share it; one that stood at that time is replaced.
  virtual void addKeyFrame(KeyFramePtr keyFrame) {
    requireKeyFrame(keyFrame, "add");
    journalKeyFrame(keyFrame->time());
    put(keyFrame->time(), boost::const_pointer_cast<KeyFrame<T>>(keyFrame));
  }

  /// Writes the value of the key frame at `time`; returns the previous value.
  virtual T setKeyFrameValue(long long time, const T& value) {
    KeyFrame<T>& frame = existing(time, "set the value of");
    journalKeyFrame(time);
    T previous = frame.value();
    frame.setValue(value);
    notifyAround({time}, {});
    return previous;
  }

  /// Removes the key frame at `time`; returns its value.
  virtual T removeKeyFrame(long long time) {
    const auto found = keyFrames_.find(time);
    if (found == keyFrames_.end()) {
      throw missingKeyFrame(time, "remove");
    }
    journalKeyFrame(time);
    const boost::shared_ptr<KeyFrame<T>> gone = found->second;
    T removed = gone->value();
    keyFrames_.erase(found);
    notifyAround({time}, {gone.get()});
    return removed;
  }

  /// Puts `keyFrame` in the place of the key frame at `time`; returns the old
  /// one. The new object keeps its own time: a caller that gives it another
  /// place brings the place to it with `moveKeyFrame` (as the first pair of key
  /// frames of an animation does with a parameter's resting key frame).
  virtual KeyFramePtr replaceKeyFrame(long long time, KeyFramePtr keyFrame) {
    requireKeyFrame(keyFrame, "put in place of another");
    const auto found = keyFrames_.find(time);
    if (found == keyFrames_.end()) {
      throw missingKeyFrame(time, "replace");
    }
    journalKeyFrame(time);
    KeyFramePtr old = found->second;
    found->second = boost::const_pointer_cast<KeyFrame<T>>(keyFrame);
    notifyAround({time}, {old.get()});
    return old;
  }

  void moveKeyFrame(long long oldTime, long long newTime) override {
    const auto found = keyFrames_.find(oldTime);
    if (found == keyFrames_.end()) {
      throw missingKeyFrame(oldTime, "move");
    }
    journalKeyFrame(oldTime);
    journalKeyFrame(newTime);
    KeyFrame<T>& frame = *found->second;
    if (oldTime == newTime) {
      frame.setTime(newTime);
      return;
    }
    if (!keyFrames_.moveKey(found, newTime)) {
      throw KelMediaLibException("parameter \"" + name() + "\": can't move the key frame at " +
                                 std::to_string(oldTime) + " to " + std::to_string(newTime) +
                                 ", which holds a key frame already");
    }
    frame.setTime(newTime);
    notifyAround({oldTime, newTime}, {});
  }

  /// The journal entry of a parameter: the key frames at the places (times)
  /// an edit touched, each object with its time and value, before and after.
  /// A large parameter costs an edit only what the edit touched.
  class JournalEntry : public EditJournal::Entry {
   public:
    explicit JournalEntry(const boost::shared_ptr<Parameter<T>>& parameter)
        : parameter_(parameter) {}
    void notePart(long long place) {
      if (places_.insert(place).second) {
        frames_.push_back(Frame{place, saved(place), Saved()});
      }
    }
    void captureAfter() override {
      for (Frame& frame : frames_) {
        frame.after = saved(frame.place);
      }
    }
    void restoreBefore() override { restore(&Frame::before); }
    void restoreAfter() override { restore(&Frame::after); }

   private:
    struct Saved {
      boost::shared_ptr<KeyFrame<T>> keyFrame;  // null: no key frame there
      long long time = 0;
      std::optional<T> value;
    };
    struct Frame {
      long long place;
      Saved before;
      Saved after;
    };
    Saved saved(long long place) const {
      Saved state;
      if (const boost::shared_ptr<Parameter<T>> parameter = parameter_.lock()) {
        const auto found = parameter->keyFrames_.find(place);
        if (found != parameter->keyFrames_.end()) {
          state.keyFrame = found->second;
          state.time = found->second->time();
          state.value = found->second->value();
        }
      }
      return state;
    }
    // Places first, then the objects' times and values: an object may have
    // stood at one noted place before and at another after.
    void restore(Saved Frame::*which) const {
      const boost::shared_ptr<Parameter<T>> parameter = parameter_.lock();
      if (!parameter) {
        return;
      }
      for (const Frame& frame : frames_) {
        const Saved& state = frame.*which;
        if (state.keyFrame) {
          parameter->keyFrames_[frame.place] = state.keyFrame;
        } else {
          parameter->keyFrames_.erase(frame.place);
        }
      }
      for (const Frame& frame : frames_) {
        const Saved& state = frame.*which;
        if (state.keyFrame) {
          state.keyFrame->setTime(state.time);
          state.keyFrame->setValue(*state.value);
        }
      }
    }

    boost::weak_ptr<Parameter<T>> parameter_;
    std::unordered_set<long long> places_;
    std::vector<Frame> frames_;
  };

  /// Notes the place `time` in the open `EditJournal` before a change; also
  /// for code that writes the key frame there in place.
  void journalKeyFrame(long long time) const {
    if (EditJournal::current()) {
      EditJournal::notePart<JournalEntry>(
          boost::const_pointer_cast<Parameter<T>>(this->weak_from_this().lock()), time);
    }
  }

  /// Has the holders of the key frame at `time` and of the one after it
  /// told of the next change, whatever it concerns: for code that writes a
  /// value there in place from inside a notification. Such a write notifies
  /// nobody, but the ranges that read it see it when they next update.
  void askNextAround(long long time) const {
    std::vector<Observer*> concerned;
    collectAround(concerned, time);
    for (Observer* observer : concerned) {
      this->askNextNotification(observer);
    }
  }

  /// The companion that holds the interpolaters of an interpolating
  /// parameter; null for others.
  virtual boost::shared_ptr<InterpolaterParameter> interpolaterParameter() const {
    return boost::shared_ptr<InterpolaterParameter>();
  }

  void copyKeyFramesFrom(const ParameterInterface& source) override {
    const Parameter<T>* typed = dynamic_cast<const Parameter<T>*>(&source);
    if (!typed) {
      throw KelMediaLibException("parameter \"" + name() + "\": can't copy the key frames of \"" +
                                 source.name() + "\", a parameter of another type");
    }
    std::vector<Observer*> concerned;
    for (const auto& entry : keyFrames_) {
      journalKeyFrame(entry.first);
      concerned.insert(concerned.end(), entry.second->holders().begin(),
                       entry.second->holders().end());
    }
    for (const auto& entry : typed->keyFrames_) {
      journalKeyFrame(entry.first);
    }
    copyOwnKeyFrames(*typed);
    this->notifyConcerned(concerned);
  }

  /// An iterator at the first key frame. It holds a read lock of the project
  /// for as long as it or a copy of it lives; a project that has gone throws
  /// `boost::bad_weak_ptr`.
  ParameterIterator<T> begin() const { return ParameterIterator<T>(firstKeyFrameTime(), this); }
  /// The iterator past the last key frame: at the largest 64-bit time.
  ParameterIterator<T> end() const {
    return ParameterIterator<T>(std::numeric_limits<long long>::max(), this);
  }

  void dispatch(ParameterDispatcher& dispatcher) override {
    dispatcher.receive(this->shared_from_this());
  }

  /// `<Parameter id=".." name="..">` with the key frames.
  void xmlName(Options& options) const override { writeLiteral(options.out, "Parameter"); }
  void xmlAttributes(Options& options) const override {
    writeLiteral(options.out, "id=\"");
    writeXMLValue(options.out, options.ident(*this));
    writeLiteral(options.out, "\" name=\"");
    writeXMLValue(options.out, name());
    writeLiteral(options.out, "\"");
  }
  void xmlBody(Options& options, int depth) const override { writeKeyFrames(options, depth); }

  /// Writes `<Keyframes>` with one `<Keyframe time=".." value=".."/>` each.
  void writeKeyFrames(Options& options, int depth) const {
    XMLLine line(options.out);
    writeKeyFrames(line, depth);
    line.flush();
  }
  void writeKeyFrames(XMLLine& line, int depth) const {
    line.indent(depth);
    line.literal("<Keyframes>\n");
    for (const auto& entry : keyFrames_) {
      writeKeyFrame(line, depth + 1, entry.first, entry.second->value());
    }
    line.indent(depth);
    line.literal("</Keyframes>\n");
  }
  /// One `<Keyframe time=".." value=".."/>`.
  static void writeKeyFrame(XMLLine& line, int depth, long long time, const T& value) {
    line.indent(depth);
    line.literal("<Keyframe time=\"");
    line.value(time);
    line.literal("\" value=\"");
    line.value(value);
    line.literal("\"/>\n");
  }

 protected:
  Parameter(boost::weak_ptr<const ThreadSafe> project, const std::string& name,
            const T& defaultValue)
      : SubProject(project), Identified(name), default_(defaultValue) {
    keyFrames_.try_emplace(0, boost::make_shared<KeyFrame<T>>(0, defaultValue));
  }

  typedef KeyFrameStore<boost::shared_ptr<KeyFrame<T>>> KeyFrameMap;

  /// The last key frame at or before `time`; end() if there is none. A NaN
  /// time lies before every key frame.
  typename KeyFrameMap::const_iterator atOrBefore(double time) const {
    if (keyFrames_.empty() || !(time >= static_cast<double>(keyFrames_.begin()->first))) {
      return keyFrames_.end();
    }
    if (time >= static_cast<double>(keyFrames_.rbegin()->first)) {
      return std::prev(keyFrames_.end());
    }
    // Key frames stand at whole times: the last one at or before `time` is the
    // last one at or before its floor, which lies within the key frames' span.
    const long long whole = static_cast<long long>(std::floor(time));
    return std::prev(keyFrames_.upper_bound(whole));
  }

  const KeyFrameMap& keyFrameMap() const { return keyFrames_; }

  /// Replaces the key frames by clones of those of `source`, without telling.
  void copyOwnKeyFrames(const Parameter<T>& source) {
    KeyFrameMap copy(source.keyFrames_);
    for (auto it = copy.begin(); it != copy.end(); ++it) {
      it->second.reset(it->second->clone());
    }
    keyFrames_.swap(copy);
  }

 private:
  // Puts `keyFrame` at `time` and tells who it concerns, the holders of a key
  // frame it replaces included.
  void put(long long time, const boost::shared_ptr<KeyFrame<T>>& keyFrame) {
    boost::shared_ptr<KeyFrame<T>>& slot = keyFrames_[time];
    const boost::shared_ptr<KeyFrame<T>> old = slot;
    slot = keyFrame;
    notifyAround({time}, {old.get()});
  }

  // The holders of the key frame at `time` and of the key frame after it.
  void collectAround(std::vector<Observer*>& concerned, long long time) const {
    auto it = keyFrames_.lower_bound(time);
    if (it != keyFrames_.end() && it->first == time) {
      const std::vector<Observer*>& holders = it->second->holders();
      concerned.insert(concerned.end(), holders.begin(), holders.end());
      ++it;
    }
    if (it != keyFrames_.end()) {
      const std::vector<Observer*>& holders = it->second->holders();
      concerned.insert(concerned.end(), holders.begin(), holders.end());
    }
  }

  void notifyAround(std::initializer_list<long long> times,
                    std::initializer_list<const KeyFrame<T>*> gone) const {
    std::vector<Observer*> concerned;
    for (const KeyFrame<T>* keyFrame : gone) {
      if (keyFrame) {
        concerned.insert(concerned.end(), keyFrame->holders().begin(), keyFrame->holders().end());
      }
    }
    for (const long long time : times) {
      collectAround(concerned, time);
    }
    this->notifyConcerned(concerned);
  }

  KeyFrame<T>& existing(long long time, const char* what) {
    const auto found = keyFrames_.find(time);
    if (found == keyFrames_.end()) {
      throw missingKeyFrame(time, what);
    }
    return *found->second;
  }

  KelMediaLibException missingKeyFrame(long long time, const char* what) const {
    return KelMediaLibException("parameter \"" + name() + "\": can't " + what +
                                " the key frame at " + std::to_string(time) +
                                ": there is no key frame at that time");
  }

  void requireKeyFrame(const KeyFramePtr& keyFrame, const char* what) const {
    if (!keyFrame) {
      throw KelMediaLibException("parameter \"" + name() + "\": can't " + what +
                                 " a null key frame");
    }
  }

  KeyFrameMap keyFrames_;
  T default_;
};

extern template class Parameter<double>;
extern template class Parameter<float>;
extern template class Parameter<int>;
extern template class Parameter<Point>;
extern template class Parameter<Color>;
extern template class Parameter<AudioPosition>;
extern template class Parameter<Rect<float>>;
extern template class Parameter<TransformMatrix>;
extern template class Parameter<std::string>;
extern template class Parameter<std::vector<Rect<float>>>;
extern template class Parameter<boost::shared_ptr<Interpolater<double>>>;
extern template class Parameter<boost::shared_ptr<Interpolater<float>>>;
extern template class Parameter<boost::shared_ptr<Interpolater<int>>>;
extern template class Parameter<boost::shared_ptr<Interpolater<Point>>>;
extern template class Parameter<boost::shared_ptr<Interpolater<Color>>>;
extern template class Parameter<boost::shared_ptr<Interpolater<AudioPosition>>>;
extern template class Parameter<boost::shared_ptr<Interpolater<TransformMatrix>>>;
extern template class Parameter<boost::shared_ptr<Interpolater<Rect<float>>>>;

}  // namespace KelMediaLib
