#include "actions/EdgeAction.h"

#include "actions/OrvException.h"
#include "actions/ParameterRange.h"
#include "core/XMLText.h"
#include "media/media/Media.h"

#include <boost/make_shared.hpp>

#include <ostream>

namespace OrvMediaLib {

using KelMediaLib::Media;

namespace {

boost::shared_ptr<const Media> requireMedia(boost::shared_ptr<const Media> media) {
  if (!media) {
    throw OrvException("an edge action needs a media");
  }
  return media;
}

}  // namespace

void EdgeAction::MediaObserverRelay::observerUpdate() {
  if (action_) {
    action_->mediaUpdate();
  }
}

EdgeAction::EdgeAction(boost::shared_ptr<const Media> media)
    : ActionImpl(requireMedia(media), KelMediaLib::Range<long long>(0, 0)),
      media_(media),
      mediaRange_(media->mediaTimeRange()) {
  // The relay is detached from the media when the last action sharing it goes.
  mediaObserverRelay_.reset(new MediaObserverRelay(this), [media](MediaObserverRelay* relay) {
    media->detach(relay);
    delete relay;
  });
  media_->attach(mediaObserverRelay_.get());
}

EdgeAction::EdgeAction(const EdgeAction& other)
    : ActionImpl(other),
      media_(other.media_),
      mediaRange_(other.mediaRange_),
      mediaObserverRelay_(other.mediaObserverRelay_) {}

EdgeAction::~EdgeAction() {
  if (mediaObserverRelay_->action() == this) {
    mediaObserverRelay_->orphan();
  }
}

void EdgeAction::addParameterRange(const ParameterRange& range) {
  if (!rangeMatchesAction(range)) {
    throw OrvException("trying to add param range that doesn't match the action");
  }
  const KelMediaLib::Range<long long> edges = media_->mediaTimeRange();
  if (range.leftKeyframe()->time() != edges.start && range.rightKeyframe()->time() != edges.end()) {
    throw OrvException("trying to add an edge action not at the edge");
  }
  // Deliberately not listened to: a bin's collision watch hears of an action
  // only through its ranges, and edge actions are kept out of it.
  ranges().push_back(boost::make_shared<ParameterRange>(range));
}

// Edge actions don't follow their media's edges; subclasses may.
void EdgeAction::mediaUpdate() {}

EdgeAction* EdgeAction::clone() const {
  return new EdgeAction(*this);
}

void EdgeAction::xmlName(Options& options) const {
  KelMediaLib::writeLiteral(options.out, "EdgeAction");
}

}  // namespace OrvMediaLib
