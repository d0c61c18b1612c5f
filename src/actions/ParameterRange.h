#pragma once

#include "actions/InterpolaterRange.h"
#include "core/Observer.h"
#include "core/Subject.h"
#include "core/XMLIdentified.h"
#include "core/XMLable.h"
#include "values/KeyFrame.h"
#include "values/Range.h"

#include <boost/enable_shared_from_this.hpp>
#include <boost/shared_ptr.hpp>

#include <memory>

namespace KelMediaLib {
class Parametric;
template <class T>
class Parameter;
}  // namespace KelMediaLib

namespace OrvMediaLib {

class Modifier;

/// Ties one stretch of a parameter of doubles to an action: a left and a
/// right key frame of the parameter (shared with it once they are in), the
/// parametric that owns the parameter, and a private clone of the modifier
/// that produced the values. Times are key frame time; the stretch runs from
/// the left key frame to the right one, both included.
///
/// A range observes its parameter for all its life (told of the changes that
/// concern its key frames: see `Parameter`) and keeps the key frames
/// around it consistent: the left key frame carries the value of the key
/// frame before it, and a value written on the right key frame is handed on
/// to the key frame after it. Those values are written into the key frames in
/// place, so that the parameter doesn't notify again. A range that finds its
/// stretch or values changed notifies its own observers (its action).
///
/// The range's key frames need not be in the parameter: they go in with
/// `addRangesKeyframes` when the action is added to the project.
class ParameterRange : public KelMediaLib::Subject,
                       public KelMediaLib::Observer,
                       public KelMediaLib::XMLable,
                       public virtual KelMediaLib::XMLIdentified,
                       public boost::enable_shared_from_this<ParameterRange> {
 public:
  typedef KelMediaLib::KeyFrame<double> KeyFrameType;

  /// The key frames' values and what the range has seen of them, for
  /// `EditJournal`. (Their times change only while they are in the parameter,
  /// whose own state holds them.)
  struct JournalState {
    double leftKeyframeValue;
    double rightKeyframeValue;
    KelMediaLib::Range<long long> seenTimeRange;
    double seenLeftValue;
    double seenRightValue;
    boost::shared_ptr<InterpolaterRange> interpolater;
  };
  JournalState journalState() const;
  void restoreJournalState(const JournalState& state);

  /// Attaches the range to `parameter`. Throws `OrvException` if a pointer is
  /// null.
  ParameterRange(boost::shared_ptr<const KelMediaLib::Parametric> parametric,
                 boost::shared_ptr<const KelMediaLib::Parameter<double>> parameter,
                 boost::shared_ptr<const KeyFrameType> left,
                 boost::shared_ptr<const KeyFrameType> right, const Modifier& modifier);
  /// The same key frames, a clone of the modifier, the same interpolater range
  /// and value caches; attached to the parameter on its own. The stretch cache
  /// starts at (0, 0), so the copy's first update notifies unless the stretch
  /// is (0, 0) itself.
  ParameterRange(const ParameterRange& other);
  ParameterRange& operator=(const ParameterRange&) = delete;
  /// Detaches from the parameter.
  ~ParameterRange() override;

  /// The owner of the parameter (a media or one of its effects).
  boost::shared_ptr<const KelMediaLib::Parametric> parametric() const { return parametric_; }
  /// The animated parameter, observed by this range.
  boost::shared_ptr<const KelMediaLib::Parameter<double>> parameter() const { return parameter_; }
  /// The first key frame of the stretch, shared with the parameter once in.
  boost::shared_ptr<const KeyFrameType> leftKeyframe() const { return leftKeyframe_; }
  /// The last key frame of the stretch, shared with the parameter once in.
  boost::shared_ptr<const KeyFrameType> rightKeyframe() const { return rightKeyframe_; }
  /// The interpolater the range asks for; null if none.
  boost::shared_ptr<InterpolaterRange> interpolater() const { return interpolater_; }
  /// Replaces the interpolater range; nothing else happens.
  void setInterpolater(boost::shared_ptr<InterpolaterRange> interpolater);
  /// The range's own clone of its modifier.
  const Modifier& modifier() const { return *modifier_; }

  /// Time of the left key frame.
  long long leftTime() const;
  /// Time of the right key frame.
  long long rightTime() const;
  /// `rightTime() - leftTime()`.
  long long duration() const;
  /// (leftTime, duration), key frame time, read from the key frames each time.
  KelMediaLib::Range<long long> timeRange() const;
  /// `timeRange()` with its start mapped to the parametric's own time by
  /// `fromParameterTime` (truncated toward zero); the duration isn't mapped.
  KelMediaLib::Range<long long> parametricTimeRange() const;

  /// Called by the parameter after any change to it: brings the caches up to
  /// date, moves the interpolater key frame with the stretch, syncs the left
  /// value, hands new end values to the neighbouring key frames and notifies
  /// if anything changed. Runs once for each step of a multi-step edit.
  void observerUpdate() override;

  /// Puts a range's key frames into their parameters (the very objects, so
  /// that range and parameter share them), in this order:
  ///
  /// - a range whose ends hold equal values ends on the value of the key
  ///   frame after `right`, so that the animation has no step there;
  /// - a parameter at rest (one key frame, at 0) gives its key frame up:
  ///   `left` takes its place and is moved to its own time;
  ///
  ///       before:  0=5                  after:  100=5  200=9
  ///       range:        100=5  200=9
  ///
  /// - otherwise both key frames are added;
  /// - a companion at rest moves its key frame from 0 to -1, before anything
  ///   on the timeline, before `interpolaterKeyframe` goes in;
  /// - the parameter gets its first interpolater (`InterpolaterEnforcer`).
  ///
  /// The last two arguments may be null. What the parameters throw passes
  /// through.
  static void addRangesKeyframes(
      const boost::shared_ptr<const KelMediaLib::Parameter<double>>& parameter,
      const boost::shared_ptr<const KeyFrameType>& left,
      const boost::shared_ptr<const KeyFrameType>& right,
      const boost::shared_ptr<const InterpolaterRange::InterpolaterParameter>&
          interpolaterParameter,
      const boost::shared_ptr<const InterpolaterRange::InterpolaterKeyFrame>& interpolaterKeyframe);

  /// `<ParameterRange id=".." parametric=".." parameter=".." left=".." right=".."/>`:
  /// the parametric's ident, the parameter's name and the two key frame times.
  void xmlName(Options& options) const override;
  void xmlAttributes(Options& options) const override;
  void xmlBody(Options& options, int depth) const override;

 protected:
  bool xmlHasBody() const override { return false; }

 private:
  /// Notes the range in the open journal before a change.
  void journalEdit();
  void attachToKeyFrames();
  void writeInPlace(const boost::shared_ptr<const KeyFrameType>& keyFrame, double value);
  bool syncLeftValue();
  void handToPreviousKeyFrame();
  void handToNextKeyFrame();
  void updateInterpolater(const KelMediaLib::Range<long long>& now);

  boost::shared_ptr<const KelMediaLib::Parametric> parametric_;
  boost::shared_ptr<const KelMediaLib::Parameter<double>> parameter_;
  boost::shared_ptr<const KeyFrameType> leftKeyframe_;
  boost::shared_ptr<const KeyFrameType> rightKeyframe_;
  std::unique_ptr<Modifier> modifier_;
  KelMediaLib::Range<long long> timeRange_;
  double leftValue_;
  double rightValue_;
  boost::shared_ptr<InterpolaterRange> interpolater_;
};

}  // namespace OrvMediaLib
