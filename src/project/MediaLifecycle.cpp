#include "project/InternalOrvProject.h"

#include "actions/Action.h"
#include "actions/ActionBin.h"
#include "actions/ActionGraveyard.h"
#include "core/CloneDecorator.h"
#include "media/media/Media.h"
#include "media/project/InternalProject.h"
#include "project/ProjectSupport.h"

#include <boost/weak_ptr.hpp>

#include <utility>
#include <vector>

// Media coming onto and going off the timeline, with their actions: the
// graveyard keeps the actions of media that are away, and clones of a
// media get copies of its actions.

namespace OrvMediaLib {

using KelMediaLib::CloneDecorator;
using KelMediaLib::Media;
using projectsupport::Bins;

namespace {

// Lives in a media and follows its clones: each clone gets copies of the
// media's actions, waiting in the graveyard until the clone reaches a track,
// and a handler of its own. The bins are held weakly, as a media may outlive
// its project.
class CloneHandler : public CloneDecorator<Media> {
 public:
  CloneHandler(boost::weak_ptr<ActionGraveyard> graveyard,
               std::vector<boost::weak_ptr<ActionBin>> actionBins)
      : graveyard_(std::move(graveyard)), actionBins_(std::move(actionBins)) {}

  void execute(const Media* source, boost::shared_ptr<const Media> clone) override {
    const Bins bins = lockActionBins();
    const boost::shared_ptr<ActionGraveyard> graveyard = graveyard_.lock();
    if (bins.empty() || !graveyard) {
      return;
    }
    putClonesActionsInGraveyard(*graveyard, bins, source, clone);
    graveyard->cloneMediasZombies(source, clone);
    clone->setCloneDecorator(new CloneHandler(graveyard_, actionBins_));
  }

 private:
  // All or nothing: a project that has lost any of its bins is ending.
  Bins lockActionBins() const {
    Bins bins;
    for (const boost::weak_ptr<ActionBin>& weak : actionBins_) {
      const boost::shared_ptr<ActionBin> bin = weak.lock();
      if (!bin) {
        return Bins();
      }
      bins.push_back(bin);
    }
    return bins;
  }

  void putClonesActionsInGraveyard(ActionGraveyard& graveyard, const Bins& bins,
                                   const Media* source,
                                   const boost::shared_ptr<const Media>& clone) const {
    for (const boost::shared_ptr<ActionBin>& bin : bins) {
      const boost::shared_ptr<ActionList> actions = bin->mediasActions(source);
      for (const boost::shared_ptr<const Action>& action : *actions) {
        graveyard.addAction(bin, clone, action->createCloneAction(source, clone));
      }
    }
  }

  boost::weak_ptr<ActionGraveyard> graveyard_;
  std::vector<boost::weak_ptr<ActionBin>> actionBins_;
};

}  // namespace

const ActionGraveyard& InternalOrvProject::graveyard() const {
  return *graveyard_;
}

// Every media that is added gets its actions back, whether it was ever
// removed or not: a new media simply has none waiting. The zombies return
// through the bin alone, as their key frames never left the parameters.
void InternalOrvProject::addMedia(boost::shared_ptr<const KelMediaLib::Track> track,
                                  boost::shared_ptr<const Media> media, long long time) {
  const Bins bins{actionBin_, zdActionBin_, audioActionBin_};
  if (media && !media->cloneDecorator()) {
    media->setCloneDecorator(new CloneHandler(
        graveyard_, std::vector<boost::weak_ptr<ActionBin>>(bins.begin(), bins.end())));
  }
  project_->addMedia(track, media, time);
  const ActionGraveyard::ZombieList zombies = graveyard_->mediasZombies(media);
  for (const Zombie& zombie : zombies) {
    for (const boost::shared_ptr<ActionBin>& bin : bins) {
      if (bin == zombie.first) {
        bin->addAction(media, zombie.second);
      }
    }
  }
  graveyard_->remove(media);
}

// The inner project takes the linked media with this one, so their actions
// go to the graveyard as well.
KelMediaLib::MediaPlacements InternalOrvProject::removeMedia(
    boost::shared_ptr<const KelMediaLib::Track> track, boost::shared_ptr<const Media> media) {
  const KelMediaLib::MediaPlacements placements = project_->removeMedia(track, media);
  for (const boost::shared_ptr<ActionBin>& bin : {actionBin_, zdActionBin_, audioActionBin_}) {
    removeMediasActions(bin, media);
    for (const boost::weak_ptr<const Media>& link : media->links()) {
      removeMediasActions(bin, link.lock());
    }
  }
  return placements;
}

void InternalOrvProject::removeMedia(boost::shared_ptr<const KelMediaLib::Track> track,
                                     boost::shared_ptr<const Media> media, long long time) {
  project_->removeMedia(track, media, time);
  for (const boost::shared_ptr<ActionBin>& bin : {actionBin_, zdActionBin_, audioActionBin_}) {
    removeMediasActions(bin, media);
  }
}

// The key frames stay in the media's parameters, ready for the actions'
// return; the bin's enforcer stops watching the actions.
void InternalOrvProject::removeMediasActions(const boost::shared_ptr<ActionBin>& bin,
                                             const boost::shared_ptr<const Media>& media) {
  if (!media || !bin->hasMedia(media)) {
    return;
  }
  const boost::shared_ptr<ActionList> actions = bin->mediasActions(media);
  for (const boost::shared_ptr<const Action>& action : *actions) {
    graveyard_->addAction(bin, media, action);
  }
  bin->removeMedia(media);
}

}  // namespace OrvMediaLib
