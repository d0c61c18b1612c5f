#pragma once

#include <boost/shared_ptr.hpp>

namespace KelMediaLib {
class Media;
template <class T>
class Parameter;
template <class T>
class Range;
}  // namespace KelMediaLib

namespace OrvMediaLib {

class Action;
class ActionBin;
class ActionDescription;
class ParameterRange;

/// Every edit of the action model, as commands call it; the project
/// implements it. Objects are given as pointers to const: the handler owns
/// the model and is the one that changes it. Bins are found by identity.
/// Times and deltas are on the key frame axis of the action's media;
/// ranges are (start, duration), end exclusive.
class OrvCommandHandler {
 public:
  virtual ~OrvCommandHandler();

  /// Makes an action on `media` as `description` says, over `range`, and
  /// puts it into `bin`; returns the new action.
  virtual boost::shared_ptr<Action> addAction(boost::shared_ptr<const KelMediaLib::Media> media,
                                              boost::shared_ptr<const ActionBin> bin,
                                              ActionDescription const& description,
                                              KelMediaLib::Range<long long> const& range) = 0;
  /// Puts this very action (back) into `bin`, with its key frames.
  virtual void addAction(boost::shared_ptr<const ActionBin> bin,
                         boost::shared_ptr<const Action> action) = 0;
  /// Moves the action and its key frames by `delta`.
  virtual void moveAction(boost::shared_ptr<const Action> action, long long delta) = 0;
  /// Adds the range and its key frames to the action.
  virtual void addParameterRange(boost::shared_ptr<const Action> action,
                                 boost::shared_ptr<const ParameterRange> range) = 0;
  /// Joins the range with the action's range on the same parameter.
  /// The project refuses this edit for now.
  virtual void mergeParameterRange(boost::shared_ptr<const Action> action,
                                   boost::shared_ptr<const ParameterRange> range) = 0;
  /// Takes off the action its ranges of `parameter` that span `range`,
  /// which must be the action's own time range.
  virtual void removeParameterRange(
      boost::shared_ptr<const Action> action,
      boost::shared_ptr<const KelMediaLib::Parameter<double>> parameter,
      KelMediaLib::Range<long long> const& range) = 0;
  /// Trims `delta` off the action's end (positive: shorter, negative: longer).
  virtual void trimActionEnd(boost::shared_ptr<const Action> action, long long delta) = 0;
  /// Trims `delta` off the action's start (positive: shorter, negative: longer).
  virtual void trimActionStart(boost::shared_ptr<const Action> action, long long delta) = 0;
  /// Takes the action and its key frames away; returns the bin that held it.
  virtual boost::shared_ptr<ActionBin> removeAction(boost::shared_ptr<const Action> action) = 0;
};

}  // namespace OrvMediaLib
