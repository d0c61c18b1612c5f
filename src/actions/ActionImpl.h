#pragma once

#include "actions/Action.h"
#include "core/KelObject.h"
#include "core/Observer.h"

#include <memory>

namespace OrvMediaLib {

/// What the two kinds of action share: the parametric, the list of ranges and
/// the action's own time range for when it has no range. A range change
/// reaches the action's observers through an observer relay attached to each
/// range (an action is a subject, not an observer).
class ActionImpl : public KelMediaLib::KelObject, public Action {
 public:
  ~ActionImpl() override;

  /// The parametric, the ranges in order and the own time range, for
  /// `EditJournal`.
  struct JournalState {
    boost::shared_ptr<const KelMediaLib::Parametric> parametric;
    ParameterRangeList ranges;
    KelMediaLib::Range<long long> timeRange;
  };
  JournalState journalState() const;
  void restoreJournalState(const JournalState& state);

  KelMediaLib::Range<long long> timeRange() const override;
  KelMediaLib::Range<long long> parametricTimeRange() const override;
  boost::shared_ptr<ParameterRangeList> parameterRanges() const override;
  boost::shared_ptr<const KelMediaLib::Parametric> parametric() const override;
  void setParametric(boost::shared_ptr<const KelMediaLib::Parametric> parametric) override;
  void addParameterRange(const ParameterRange& range) override;
  void removeParameterRange(const ParameterRange& range) override;
  bool hasParameterRangeForParameterAndTimeRange(
      boost::shared_ptr<const KelMediaLib::Parameter<double>> parameter,
      KelMediaLib::Range<long long> timeRange) const override;
  bool hasParameterRangeMeeting(const KelMediaLib::ParameterInterface* parameter, long long left,
                                long long right) const override;
  /// Called by the relay when one of the ranges has changed: notifies.
  virtual void parameterRangeUpdate();
  int numParameterRanges() const override;
  void setTimeRange(const KelMediaLib::Range<long long>& timeRange) override;
  boost::shared_ptr<Action> createCloneAction(
      const KelMediaLib::Media* source,
      boost::shared_ptr<const KelMediaLib::Media> clone) const override;

  /// `timeRange="(start,duration)"`.
  void xmlAttributes(Options& options) const override;
  /// `<ParameterRanges>` with each range in list order.
  void xmlBody(Options& options, int depth) const override;

 protected:
  /// Throws `OrvException` on a null parametric.
  ActionImpl(boost::shared_ptr<const KelMediaLib::Parametric> parametric,
             const KelMediaLib::Range<long long>& timeRange);
  /// Shares the ranges of `other` and listens to them with a relay of its own.
  ActionImpl(const ActionImpl& other);
  ActionImpl& operator=(const ActionImpl&) = delete;

  ParameterRangeList& ranges() { return parameterRanges_; }
  /// True if `range` has the key frame times of every range held (so always
  /// when there is none).
  bool rangeMatchesAction(const ParameterRange& range) const;
  /// Notes the action in the open journal before a change.
  void journalEdit();

 private:
  /// Turns a range's notification into `parameterRangeUpdate` of its action.
  class ParameterRangeObserverRelay : public KelMediaLib::Observer {
   public:
    explicit ParameterRangeObserverRelay(ActionImpl* action) : action_(action) {}
    void observerUpdate() override;

   private:
    ActionImpl* action_;
  };

  boost::shared_ptr<const KelMediaLib::Parametric> parametric_;
  ParameterRangeList parameterRanges_;
  std::unique_ptr<ParameterRangeObserverRelay> observerRelay_;
  KelMediaLib::Range<long long> timeRange_;
};

}  // namespace OrvMediaLib
