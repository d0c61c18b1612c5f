#pragma once

#include "core/Cloneable.h"
#include "core/Subject.h"
#include "core/XMLIdentified.h"
#include "core/XMLable.h"
#include "values/Range.h"

#include <boost/enable_shared_from_this.hpp>
#include <boost/shared_ptr.hpp>

#include <list>

namespace KelMediaLib {
class Media;
class ParameterInterface;
class Parametric;
template <class T>
class Parameter;
}  // namespace KelMediaLib

namespace OrvMediaLib {

class Action;
class ParameterRange;

/// The parameter ranges of an action, in order of addition.
typedef std::list<boost::shared_ptr<ParameterRange>> ParameterRangeList;
/// Actions of one media, in order, as bins hand them out.
typedef std::list<boost::shared_ptr<const Action>> ActionList;

/// A bounded stretch of time on one media during which parameters of that
/// media (or of one of its effects) are animated. The animation itself lives
/// in the parameters' key frames; the action holds the `ParameterRange`s that
/// point at them. All ranges of an action span the same two times.
///
/// Times are on the key frame axis of the action's parametric unless said
/// otherwise; ranges are (start, duration), end exclusive. An action notifies
/// its observers when one of its ranges changes (see the kinds) and on
/// `setTimeRange`.
class Action : public KelMediaLib::Subject,
               public KelMediaLib::Cloneable,
               public KelMediaLib::XMLable,
               public virtual KelMediaLib::XMLIdentified,
               public boost::enable_shared_from_this<Action> {
 public:
  ~Action() override;

  /// The time range of the first parameter range; the action's own range
  /// while it has none. Key frame time.
  virtual KelMediaLib::Range<long long> timeRange() const = 0;
  /// `timeRange()` with its start mapped to the parametric's own time; the
  /// duration is left as it is.
  virtual KelMediaLib::Range<long long> parametricTimeRange() const = 0;
  /// A new list, the caller's, of the shared ranges: safe to walk while the
  /// action changes.
  virtual boost::shared_ptr<ParameterRangeList> parameterRanges() const = 0;
  /// What is animated: the media itself or one of its effects.
  virtual boost::shared_ptr<const KelMediaLib::Parametric> parametric() const = 0;
  /// Moves the action, and each of its ranges, onto another parametric.
  virtual void setParametric(boost::shared_ptr<const KelMediaLib::Parametric> parametric) = 0;
  /// Adds a copy of `range`; throws `OrvException` if its key frame times
  /// differ from those of the ranges already held.
  virtual void addParameterRange(const ParameterRange& range) = 0;
  /// Takes out the first range on the same parameter object with an equal
  /// time range; does nothing if there is none.
  virtual void removeParameterRange(const ParameterRange& range) = 0;
  /// True if a range on that very parameter has exactly this time range.
  virtual bool hasParameterRangeForParameterAndTimeRange(
      boost::shared_ptr<const KelMediaLib::Parameter<double>> parameter,
      KelMediaLib::Range<long long> timeRange) const = 0;
  /// A new action of the same kind sharing this one's ranges; the caller owns it.
  Action* clone() const override = 0;
  virtual int numParameterRanges() const = 0;
  /// Whether a range of the action on `parameter` meets [left, right] (key
  /// frame time, both ends included). Copies nothing: the project asks it of
  /// every action of a media on each edit.
  virtual bool hasParameterRangeMeeting(const KelMediaLib::ParameterInterface* parameter,
                                        long long left, long long right) const = 0;
  /// Stores the action's own range (which `timeRange()` shows only while
  /// there are no ranges) and notifies the observers in any case.
  virtual void setTimeRange(const KelMediaLib::Range<long long>& timeRange) = 0;
  /// The counterpart of this action on `clone`, a clone of this action's
  /// media, with ranges on the clone's parameters at the same key frame
  /// times. `source` is the media that was cloned. Throws `OrvException` if
  /// the clone lacks a parameter of that name.
  virtual boost::shared_ptr<Action> createCloneAction(
      const KelMediaLib::Media* source,
      boost::shared_ptr<const KelMediaLib::Media> clone) const = 0;
};

}  // namespace OrvMediaLib
