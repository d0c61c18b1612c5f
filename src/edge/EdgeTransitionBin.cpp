#include "edge/EdgeTransitionBin.h"

#include "actions/OrvException.h"
#include "core/EditJournal.h"
#include "core/Observer.h"
#include "edge/LeftEdgeTransition.h"
#include "edge/RightEdgeTransition.h"
#include "media/media/Media.h"

#include <boost/make_shared.hpp>

#include <string>
#include <utility>

namespace OrvMediaLib {

/// A media's two transitions. It watches the media for as long as it lives,
/// and hands every change of the media to the bin.
class EdgeTransitionBin::EdgeTransitionPair : public KelMediaLib::Observer {
 public:
  EdgeTransitionPair(boost::shared_ptr<const KelMediaLib::Media> media, EdgeTransitionBin* bin)
      : media(media), bin(bin) {
    media->attach(this);
  }
  EdgeTransitionPair(const EdgeTransitionPair&) = delete;
  EdgeTransitionPair& operator=(const EdgeTransitionPair&) = delete;
  ~EdgeTransitionPair() override { media->detach(this); }

  void observerUpdate() override { bin->updateEdgeTransitionsForMedia(media); }

  boost::shared_ptr<const LeftEdgeTransition> left;
  boost::shared_ptr<const RightEdgeTransition> right;
  const boost::shared_ptr<const KelMediaLib::Media> media;
  // The owner: the bin deletes its pairs before it goes.
  EdgeTransitionBin* const bin;
};

namespace {

void requireMedia(const boost::shared_ptr<const KelMediaLib::Media>& media, const char* operation) {
  if (!media) {
    throw OrvException(std::string("EdgeTransitionBin::") + operation + ": no media given");
  }
}

// Brings one side in step with whether its edge has modifications; true if
// the side changed. A transition that still stands stays the same object.
template <class Transition>
bool follow(boost::shared_ptr<const Transition>& side, bool hasModifications,
            const boost::shared_ptr<const KelMediaLib::Media>& media) {
  if (hasModifications == static_cast<bool>(side)) {
    return false;
  }
  if (hasModifications) {
    side = boost::make_shared<Transition>(media);
  } else {
    side.reset();
  }
  return true;
}

}  // namespace

EdgeTransitionBin::EdgeTransitionBin() = default;

EdgeTransitionBin::~EdgeTransitionBin() = default;

boost::shared_ptr<EdgeTransitionBin> EdgeTransitionBin::create() {
  return boost::shared_ptr<EdgeTransitionBin>(new EdgeTransitionBin());
}

EdgeTransitionBin::EdgeTransitionPair* EdgeTransitionBin::pairOf(
    const boost::shared_ptr<const KelMediaLib::Media>& media) const {
  const auto it = pairs_.find(media);
  return it == pairs_.end() ? nullptr : it->second.get();
}

EdgeTransitionBin::EdgeTransitionPair& EdgeTransitionBin::ensurePair(
    const boost::shared_ptr<const KelMediaLib::Media>& media, const char* operation) {
  requireMedia(media, operation);
  const auto it = pairs_.find(media);
  if (it != pairs_.end()) {
    return *it->second;
  }
  std::unique_ptr<EdgeTransitionPair> pair(new EdgeTransitionPair(media, this));
  EdgeTransitionPair& made = *pair;
  pairs_.emplace(media, std::move(pair));
  return made;
}

boost::shared_ptr<const LeftEdgeTransition> EdgeTransitionBin::leftEdgeTransitionForMedia(
    boost::shared_ptr<const KelMediaLib::Media> media) const {
  const EdgeTransitionPair* pair = pairOf(media);
  return pair ? pair->left : boost::shared_ptr<const LeftEdgeTransition>();
}

boost::shared_ptr<const RightEdgeTransition> EdgeTransitionBin::rightEdgeTransitionForMedia(
    boost::shared_ptr<const KelMediaLib::Media> media) const {
  const EdgeTransitionPair* pair = pairOf(media);
  return pair ? pair->right : boost::shared_ptr<const RightEdgeTransition>();
}

void EdgeTransitionBin::createEdgeTransitionsForMedia(
    boost::shared_ptr<const KelMediaLib::Media> media) {
  KelMediaLib::EditJournal::noteUnjournaledEdit();
  EdgeTransitionPair& pair = ensurePair(media, "createEdgeTransitionsForMedia");
  pair.left.reset();
  pair.right.reset();
  follow(pair.left, !media->leftEdgeModifications().empty(), media);
  follow(pair.right, !media->rightEdgeModifications().empty(), media);
  notify();
}

void EdgeTransitionBin::updateEdgeTransitionsForMedia(
    boost::shared_ptr<const KelMediaLib::Media> media) {
  KelMediaLib::EditJournal::noteUnjournaledEdit();
  EdgeTransitionPair* pair = pairOf(media);
  if (!pair) {
    createEdgeTransitionsForMedia(media);
    return;
  }
  const bool leftChanged = follow(pair->left, !media->leftEdgeModifications().empty(), media);
  const bool rightChanged = follow(pair->right, !media->rightEdgeModifications().empty(), media);
  if (leftChanged || rightChanged) {
    notify();
  }
}

void EdgeTransitionBin::addLeftEdgeTransition(
    boost::shared_ptr<const KelMediaLib::Media> media,
    boost::shared_ptr<const LeftEdgeTransition> transition) {
  KelMediaLib::EditJournal::noteUnjournaledEdit();
  if (transition && transition->media() != media) {
    throw OrvException(
        "EdgeTransitionBin::addLeftEdgeTransition: the transition is on another media");
  }
  ensurePair(media, "addLeftEdgeTransition").left = transition;
  notify();
}

void EdgeTransitionBin::addRightEdgeTransition(
    boost::shared_ptr<const KelMediaLib::Media> media,
    boost::shared_ptr<const RightEdgeTransition> transition) {
  KelMediaLib::EditJournal::noteUnjournaledEdit();
  if (transition && transition->media() != media) {
    throw OrvException(
        "EdgeTransitionBin::addRightEdgeTransition: the transition is on another media");
  }
  ensurePair(media, "addRightEdgeTransition").right = transition;
  notify();
}

}  // namespace OrvMediaLib
