#pragma once

#include "actions/ActionImpl.h"
#include "core/Observer.h"

#include <boost/shared_ptr.hpp>

namespace KelMediaLib {
class Media;
}

namespace OrvMediaLib {

/// An action at the left or right edge of a media, which it keeps alive.
/// Its ranges must start at the start of the media's `mediaTimeRange()` or
/// end at its end (key frame time). A change of one of its ranges is not
/// passed on to the action's observers. Written as `<EdgeAction timeRange>`
/// with its `<ParameterRanges>`.
class EdgeAction : public ActionImpl {
 public:
  /// An action on `media`'s own parameters with the range (0, 0), listening
  /// to the media. Throws `OrvException` on a null media.
  explicit EdgeAction(boost::shared_ptr<const KelMediaLib::Media> media);
  /// Shares the ranges, the media and the media listener of `other`.
  EdgeAction(const EdgeAction& other);
  ~EdgeAction() override;

  /// Like the base, and throws `OrvException` unless the range sits at an
  /// edge of the media. The copy isn't listened to.
  void addParameterRange(const ParameterRange& range) override;
  /// Called when the media notifies; does nothing here.
  virtual void mediaUpdate();
  EdgeAction* clone() const override;
  void xmlName(Options& options) const override;

 private:
  /// Turns the media's notification into `mediaUpdate` of the action that
  /// made it. Shared by the copies of that action; attached to the media
  /// while any of them lives.
  class MediaObserverRelay : public KelMediaLib::Observer {
   public:
    explicit MediaObserverRelay(EdgeAction* action) : action_(action) {}
    void observerUpdate() override;
    EdgeAction* action() const { return action_; }
    /// Called when the action that made it goes: the copies keep the relay
    /// but it has nobody to tell any more.
    void orphan() { action_ = nullptr; }

   private:
    EdgeAction* action_;
  };

  boost::shared_ptr<const KelMediaLib::Media> media_;
  KelMediaLib::Range<long long> mediaRange_;
  boost::shared_ptr<MediaObserverRelay> mediaObserverRelay_;
};

}  // namespace OrvMediaLib
