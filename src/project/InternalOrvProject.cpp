#include "project/InternalOrvProject.h"

#include "actions/Action.h"
#include "actions/ActionBin.h"
#include "actions/ActionCreator.h"
#include "actions/ActionGraveyard.h"
#include "actions/OrvException.h"
#include "actions/ParameterRange.h"
#include "commands/OrvCommand.h"
#include "commands/OrvCommandExecutor.h"
#include "core/CloneDecorator.h"
#include "core/XMLText.h"
#include "edge/EdgeTransitionBin.h"
#include "media/media/Media.h"
#include "media/project/InternalProject.h"
#include "media/project/ProjectWriter.h"
#include "values/Parameter.h"
#include "values/ParameterInterface.h"

#include <boost/pointer_cast.hpp>
#include <boost/weak_ptr.hpp>

#include <ostream>
#include <string>
#include <utility>
#include <vector>

namespace OrvMediaLib {

using KelMediaLib::CloneDecorator;
using KelMediaLib::InternalProject;
using KelMediaLib::Media;
using KelMediaLib::Parameter;
using KelMediaLib::ParameterInterface;
using KelMediaLib::Range;

namespace {

typedef std::vector<boost::shared_ptr<ActionBin>> Bins;
typedef boost::shared_ptr<const ParameterRange::KeyFrameType> KeyFramePtr;

template <class T>
const T& require(const boost::shared_ptr<T>& object, const char* operation, const char* what) {
  if (!object) {
    throw OrvException(std::string(operation) + ": no " + what + " given");
  }
  return *object;
}

// The project owns the model that it hands out as const.
Action& writable(const Action& action) {
  return const_cast<Action&>(action);
}

boost::shared_ptr<Parameter<double>> writableParameter(const ParameterRange& range) {
  return boost::const_pointer_cast<Parameter<double>>(range.parameter());
}

// Null for an action on anything but a media (an effect).
boost::shared_ptr<const Media> mediaOf(const Action& action) {
  return boost::dynamic_pointer_cast<const Media>(action.parametric());
}

// Touching counts as colliding, as in the bins: two actions of one media
// that share an end point would leave no key frame time between them.
bool actionsOverlap(const Range<long long>& a, const Range<long long>& b) {
  return a.intersection(b).duration > 0 || a.end() == b.start || b.end() == a.start;
}

void putRangesKeyframes(const ParameterRange& range) {
  const boost::shared_ptr<InterpolaterRange> interpolater = range.interpolater();
  boost::shared_ptr<const InterpolaterRange::InterpolaterParameter> interpolaterParameter;
  boost::shared_ptr<const InterpolaterRange::InterpolaterKeyFrame> interpolaterKeyframe;
  if (interpolater) {
    interpolaterParameter = interpolater->parameter();
    interpolaterKeyframe = interpolater->keyframe();
  }
  ParameterRange::addRangesKeyframes(range.parameter(), range.leftKeyframe(), range.rightKeyframe(),
                                     interpolaterParameter, interpolaterKeyframe);
}

// The last range on a parameter: its pair is all there is, and nothing
// stands at 0 to become the resting key frame once the pair is gone.
bool needsTimeZeroKeyframe(const ParameterRange& range) {
  const Parameter<double>& parameter = *range.parameter();
  return !parameter.hasKeyFrameAt(0) && parameter.numKeyFrames() == 2;
}

// Keeps the value from before the range when its pair goes:
//
//     before:  100=5  200=9          after the pair has gone:  0=5
void addTimeZeroKeyframe(const ParameterRange& range) {
  if (needsTimeZeroKeyframe(range)) {
    writableParameter(range)->addKeyFrame(0, range.leftKeyframe()->value());
  }
}

// Each key frame goes only if the parameter still holds that very object at
// its time: another may have taken the time since. A lone pair that starts
// at 0 leaves its left key frame as the resting one. When the range was the
// earliest, the key frame now first takes over the range's starting value,
// which the parameter showed up to there:
//
//     before:  100=5  200=9  300=7  400=8      after:  300=5  400=8
void removeRangesKeyFrames(const ParameterRange& range) {
  const boost::shared_ptr<Parameter<double>> parameter = writableParameter(range);
  const KeyFramePtr left = range.leftKeyframe();
  const KeyFramePtr right = range.rightKeyframe();
  if (parameter->keyFrame(left->time()) == left &&
      (parameter->numKeyFrames() > 2 || left->time() != 0)) {
    parameter->removeKeyFrame(left->time());
  }
  if (parameter->keyFrame(right->time()) == right) {
    parameter->removeKeyFrame(right->time());
  }
  if (right->time() < parameter->firstKeyFrameTime()) {
    parameter->setKeyFrameValue(parameter->firstKeyFrameTime(), left->value());
  }
}

// Landing exactly on the neighbour's time passes; the parameter itself then
// refuses the move, as it keeps one key frame per time.
void throwIfMovingPastActions(const ParameterInterface& parameter, long long oldTime,
                              long long newTime) {
  const bool passes = newTime <= oldTime ? parameter.prevKeyFrameTime(oldTime) > newTime
                                         : parameter.nextKeyFrameTime(oldTime) < newTime;
  if (passes) {
    throw OrvException("attempting to move a keyframe past another");
  }
}

// Only the neighbours in the action's own bin count.
void throwIfCollisions(const ActionBin& bin, const Action& action, long long delta) {
  Range<long long> moved = action.timeRange();
  moved.start += delta;
  const boost::shared_ptr<ActionList> others = bin.mediasActions(mediaOf(action));
  for (const boost::shared_ptr<const Action>& other : *others) {
    if (other.get() != &action && actionsOverlap(moved, other->timeRange())) {
      throw OrvException("Action collision when moving");
    }
  }
}

void moveKeyframeBy(Parameter<double>& parameter, const KeyFramePtr& keyframe, long long delta) {
  const long long time = keyframe->time();
  if (time + delta != time) {
    parameter.moveKeyFrame(time, time + delta);
  }
}

// Lives in a media and follows its clones: each clone gets copies of the
// media's actions, waiting in the graveyard until the clone reaches a track,
// and a handler of its own. The bins are held weakly, as a media may outlive
// its project.
class CloneHandler : public CloneDecorator<Media> {
 public:
  CloneHandler(ActionGraveyard* graveyard, std::vector<boost::weak_ptr<ActionBin>> actionBins)
      : graveyard_(graveyard), actionBins_(std::move(actionBins)) {}

  void execute(const Media* source, boost::shared_ptr<const Media> clone) override {
    const Bins bins = lockActionBins();
    if (bins.empty()) {
      return;
    }
    putClonesActionsInGraveyard(bins, source, clone);
    graveyard_->cloneMediasZombies(source, clone);
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

  void putClonesActionsInGraveyard(const Bins& bins, const Media* source,
                                   const boost::shared_ptr<const Media>& clone) const {
    for (const boost::shared_ptr<ActionBin>& bin : bins) {
      const boost::shared_ptr<ActionList> actions = bin->mediasActions(source);
      for (const boost::shared_ptr<const Action>& action : *actions) {
        graveyard_->addAction(bin, clone, action->createCloneAction(source, clone));
      }
    }
  }

  ActionGraveyard* graveyard_;
  std::vector<boost::weak_ptr<ActionBin>> actionBins_;
};

}  // namespace

// Construction.

InternalOrvProject::InternalOrvProject(boost::shared_ptr<InternalProject> project)
    : project_(std::move(project)),
      actionBin_(ActionBin::create()),
      zdActionBin_(ActionBin::create()),
      videoEdgeTransitionBin_(EdgeTransitionBin::create()),
      audioEdgeTransitionBin_(EdgeTransitionBin::create()),
      graveyard_(new ActionGraveyard()),
      audioActionBin_(ActionBin::create()) {
  project_->setCommandHandler(static_cast<KelMediaLib::CommandHandler*>(this));
}

boost::shared_ptr<InternalOrvProject> InternalOrvProject::create(unsigned int numerator,
                                                                 unsigned int denominator) {
  const KelMediaLib::EditRate editRate(numerator, denominator);
  return boost::shared_ptr<InternalOrvProject>(
      new InternalOrvProject(InternalProject::create(editRate)));
}

boost::shared_ptr<InternalOrvProject> InternalOrvProject::create(
    boost::shared_ptr<KelMediaLib::Project> project) {
  boost::shared_ptr<InternalProject> inner = boost::dynamic_pointer_cast<InternalProject>(project);
  if (!inner) {
    throw OrvException("can only make a project around a project of the media model");
  }
  return boost::shared_ptr<InternalOrvProject>(new InternalOrvProject(std::move(inner)));
}

// The graveyard goes ahead of the bins whose actions it holds; the other
// members then go in reverse order of declaration, the inner project last.
InternalOrvProject::~InternalOrvProject() {
  graveyard_.reset();
}

// XML.

void InternalOrvProject::xmlName(Options& options) const {
  KelMediaLib::writeLiteral(options.out, "OrvProject");
}

void InternalOrvProject::xmlAttributes(Options& options) const {
  KelMediaLib::writeLiteral(options.out, "version=\"1.0\"");
}

const ActionGraveyard& InternalOrvProject::graveyard() const { return *graveyard_; }

void InternalOrvProject::xmlBody(Options& options, int depth) const {
  // Through the writer: it checks what the file can't hold and reads the
  // inner project under its lock.
  KelMediaLib::ProjectWriter::writeElement(*project_, options, depth);
  actionBin_->toXML(options, depth, " name=\"actionBin\"");
  zdActionBin_->toXML(options, depth, " name=\"zdActionBin\"");
  audioActionBin_->toXML(options, depth, " name=\"audioActionBin\"");
}

// History and the whole project.

bool InternalOrvProject::execute(boost::shared_ptr<KelMediaLib::Command> command) {
  return project_->execute(command);
}

void InternalOrvProject::undo() {
  project_->undo();
}

void InternalOrvProject::redo() {
  project_->redo();
}

void InternalOrvProject::combineLastCommands() {
  project_->combineLastCommands();
}

void InternalOrvProject::combineNextCommand() {
  project_->combineNextCommand();
}

KelMediaLib::CommandHistoryState InternalOrvProject::commandState() const {
  return project_->commandState();
}

void InternalOrvProject::restoreCommandState(const KelMediaLib::CommandHistoryState& state) {
  project_->restoreCommandState(state);
}

void InternalOrvProject::attachCommandObserver(KelMediaLib::CommandObserver* observer) {
  project_->attachCommandObserver(observer);
}

void InternalOrvProject::detachCommandObserver(KelMediaLib::CommandObserver* observer) {
  project_->detachCommandObserver(observer);
}

boost::shared_ptr<const KelMediaLib::Timeline> InternalOrvProject::timeline() const {
  return project_->timeline();
}

boost::shared_ptr<const KelMediaLib::SourceBin> InternalOrvProject::sourceBin() const {
  return project_->sourceBin();
}

const KelMediaLib::CommandHistory& InternalOrvProject::commandHistory() const {
  return project_->commandHistory();
}

boost::shared_ptr<KelMediaLib::ClipBoard> InternalOrvProject::clipBoard() {
  return project_->clipBoard();
}

void InternalOrvProject::changeSourcesFile(boost::shared_ptr<const KelMediaLib::Source> source,
                                           const std::string& path) {
  project_->changeSourcesFile(source, path);
}

void InternalOrvProject::addSourceBinSentry(
    boost::shared_ptr<KelMediaLib::SourceBinSentry> sentry) {
  project_->addSourceBinSentry(sentry);
}

// The command keeps this project as its handler of action edits, also
// when it fails, so that undo and redo reach the project again.
bool InternalOrvProject::orvExecute(boost::shared_ptr<OrvCommand> command) {
  require(command, "orvExecute", "command");
  command->setOrvCommandHandler(static_cast<OrvCommandHandler*>(this));
  return execute(OrvCommandExecutor::create(command));
}

boost::shared_ptr<const ActionBin> InternalOrvProject::actionBin() const {
  return actionBin_;
}

boost::shared_ptr<const ActionBin> InternalOrvProject::zdActionBin() const {
  return zdActionBin_;
}

boost::shared_ptr<const ActionBin> InternalOrvProject::audioActionBin() const {
  return audioActionBin_;
}

boost::shared_ptr<EdgeTransitionBin> InternalOrvProject::videoEdgeTransitionBin() const {
  return videoEdgeTransitionBin_;
}

boost::shared_ptr<EdgeTransitionBin> InternalOrvProject::audioEdgeTransitionBin() const {
  return audioEdgeTransitionBin_;
}

void InternalOrvProject::parserAddAction(boost::shared_ptr<const ActionBin> bin,
                                         boost::shared_ptr<const Action> action) {
  require(action, "parserAddAction", "action");
  const boost::shared_ptr<ParameterRangeList> ranges = action->parameterRanges();
  // The reader has always run this test twice, and on the left key frames
  // only: a right key frame is trusted as the file gives it.
  for (int pass = 0; pass < 2; ++pass) {
    for (const boost::shared_ptr<ParameterRange>& range : *ranges) {
      const KeyFramePtr left = range->leftKeyframe();
      if (range->parameter()->keyFrame(left->time()) != left) {
        throw OrvException("adding action who's keyframes are invalid");
      }
    }
  }
  const boost::shared_ptr<const Media> media = mediaOf(*action);
  // A file may keep a parameter's resting key frame beside its pairs.
  for (const boost::shared_ptr<ParameterRange>& range : *ranges) {
    const boost::shared_ptr<Parameter<double>> parameter = writableParameter(*range);
    if (parameter->numKeyFrames() % 2 == 1 && parameter->hasKeyFrameAt(0)) {
      parameter->removeKeyFrame(0);
    }
  }
  const boost::shared_ptr<ActionBin> target = ownBin(bin);
  if (target) {
    target->addAction(media, action);
  }
}

KelMediaLib::ReadWriteMutex& InternalOrvProject::mutex() const {
  return project_->mutex();
}

KelMediaLib::EditRate InternalOrvProject::editRate() const {
  return project_->editRate();
}

// Actions.

boost::shared_ptr<Action> InternalOrvProject::addAction(boost::shared_ptr<const Media> media,
                                                        boost::shared_ptr<const ActionBin> bin,
                                                        ActionDescription const& description,
                                                        Range<long long> const& range) {
  const boost::shared_ptr<Action> action = ActionCreator::createAction(media, description, range);
  addAction(bin, action);
  return action;
}

// The bin goes first, so that a collision leaves the parameters untouched.
void InternalOrvProject::addAction(boost::shared_ptr<const ActionBin> bin,
                                   boost::shared_ptr<const Action> action) {
  require(action, "addAction", "action");
  const boost::shared_ptr<const Media> media = mediaOf(*action);
  const boost::shared_ptr<ActionBin> target = ownBin(bin);
  if (!target) {
    throw OrvException("Invalid actionBin!");
  }
  target->addAction(media, action);
  const boost::shared_ptr<ParameterRangeList> ranges = action->parameterRanges();
  for (const boost::shared_ptr<ParameterRange>& range : *ranges) {
    putRangesKeyframes(*range);
  }
}

// Key frames move in an order that keeps a pair from passing through
// itself: the right one first on a move to the right, else the left one.
//
//     +10:  [100 .. 200]  ->  [100 .. 210]  ->  [110 .. 210]
void InternalOrvProject::moveAction(boost::shared_ptr<const Action> action, long long delta) {
  const boost::shared_ptr<ActionBin> bin = actionBinForAction(action);
  if (!bin) {
    throw OrvException("action doesn't exist inside any action bins");
  }
  throwIfCollisions(*bin, *action, delta);
  const boost::shared_ptr<ParameterRangeList> ranges = action->parameterRanges();
  if (ranges->empty()) {
    Range<long long> moved = action->timeRange();
    moved.start += delta;
    writable(*action).setTimeRange(moved);
    return;
  }
  for (const boost::shared_ptr<ParameterRange>& range : *ranges) {
    const boost::shared_ptr<Parameter<double>> parameter = writableParameter(*range);
    if (delta > 0) {
      moveKeyframeBy(*parameter, range->rightKeyframe(), delta);
      moveKeyframeBy(*parameter, range->leftKeyframe(), delta);
    } else {
      moveKeyframeBy(*parameter, range->leftKeyframe(), delta);
      moveKeyframeBy(*parameter, range->rightKeyframe(), delta);
    }
  }
}

void InternalOrvProject::addParameterRange(boost::shared_ptr<const Action> action,
                                           boost::shared_ptr<const ParameterRange> range) {
  if (!actionBinForAction(action)) {
    throw OrvException("action doesn't exist inside any action bins");
  }
  require(range, "addParameterRange", "parameter range");
  // Adding shares the message of removing: one check serves both.
  if (action->timeRange() != range->timeRange()) {
    throw OrvException("Range to remove and action range don't match");
  }
  if (action->hasParameterRangeForParameterAndTimeRange(range->parameter(), range->timeRange())) {
    throw OrvException(
        "Can't add parameter range because there's already a parameter range for the specified "
        "parameter");
  }
  putRangesKeyframes(*range);
  writable(*action).addParameterRange(*range);
}

void InternalOrvProject::mergeParameterRange(boost::shared_ptr<const Action>,
                                             boost::shared_ptr<const ParameterRange>) {
  throw OrvException("Can't merge parameter ranges yet!");
}

void InternalOrvProject::removeParameterRange(boost::shared_ptr<const Action> action,
                                              boost::shared_ptr<const Parameter<double>> parameter,
                                              Range<long long> const& range) {
  if (!actionBinForAction(action)) {
    throw OrvException("action doesn't exist inside any action bins");
  }
  if (action->timeRange() != range) {
    throw OrvException("Range to remove and action range don't match");
  }
  const boost::shared_ptr<ParameterRangeList> ranges = action->parameterRanges();
  for (const boost::shared_ptr<ParameterRange>& held : *ranges) {
    if (held->parameter() == parameter && held->timeRange() == range) {
      addTimeZeroKeyframe(*held);
      writable(*action).removeParameterRange(*held);
      removeRangesKeyFrames(*held);
    }
  }
}

// The key frames go before the bin is looked for: an action that is in no
// bin leaves its parameters changed when this throws. Callers rely on the
// action keeping its ranges and key frame objects, to add it back later.
boost::shared_ptr<ActionBin> InternalOrvProject::removeAction(
    boost::shared_ptr<const Action> action) {
  require(action, "removeAction", "action");
  const boost::shared_ptr<ParameterRangeList> ranges = action->parameterRanges();
  for (const boost::shared_ptr<ParameterRange>& range : *ranges) {
    addTimeZeroKeyframe(*range);
  }
  for (const boost::shared_ptr<ParameterRange>& range : *ranges) {
    removeRangesKeyFrames(*range);
  }
  const boost::shared_ptr<ActionBin> bin = actionBinForAction(action);
  if (!bin) {
    throw OrvException("action doesn't exist inside any action bins");
  }
  bin->removeAction(action);
  return bin;
}

// A trim looks for no bin and tests no collision of its own: the
// past-neighbour test and the bin's enforcer, told of each key frame move,
// stop it. A trim onto the very time of the range's other key frame passes
// the test, but the parameter keeps one key frame per time and refuses the
// move with its `KelMediaLibException`, so no range of duration 0 arises.
void InternalOrvProject::trimActionEnd(boost::shared_ptr<const Action> action, long long delta) {
  require(action, "trimActionEnd", "action");
  if (delta == 0) {
    return;
  }
  const boost::shared_ptr<ParameterRangeList> ranges = action->parameterRanges();
  if (ranges->empty()) {
    const Range<long long> range = action->timeRange();
    writable(*action).setTimeRange(Range<long long>(range.start, range.duration - delta));
    return;
  }
  for (const boost::shared_ptr<ParameterRange>& range : *ranges) {
    const boost::shared_ptr<Parameter<double>> parameter = writableParameter(*range);
    const long long oldTime = range->rightKeyframe()->time();
    const long long newTime = oldTime - delta;
    throwIfMovingPastActions(*parameter, oldTime, newTime);
    parameter->moveKeyFrame(oldTime, newTime);
  }
}

void InternalOrvProject::trimActionStart(boost::shared_ptr<const Action> action, long long delta) {
  require(action, "trimActionStart", "action");
  if (delta == 0) {
    return;
  }
  const boost::shared_ptr<ParameterRangeList> ranges = action->parameterRanges();
  if (ranges->empty()) {
    const Range<long long> range = action->timeRange();
    writable(*action).setTimeRange(Range<long long>(range.start + delta, range.duration - delta));
    return;
  }
  for (const boost::shared_ptr<ParameterRange>& range : *ranges) {
    const boost::shared_ptr<Parameter<double>> parameter = writableParameter(*range);
    const long long oldTime = range->leftKeyframe()->time();
    const long long newTime = oldTime + delta;
    throwIfMovingPastActions(*parameter, oldTime, newTime);
    parameter->moveKeyFrame(oldTime, newTime);
  }
}

boost::shared_ptr<ActionBin> InternalOrvProject::actionBinForAction(
    boost::shared_ptr<const Action> action) const {
  for (const boost::shared_ptr<ActionBin>& bin : {actionBin_, zdActionBin_, audioActionBin_}) {
    if (bin->containsAction(action)) {
      return bin;
    }
  }
  return boost::shared_ptr<ActionBin>();
}

boost::shared_ptr<ActionBin> InternalOrvProject::ownBin(
    const boost::shared_ptr<const ActionBin>& bin) const {
  for (const boost::shared_ptr<ActionBin>& own : {actionBin_, zdActionBin_, audioActionBin_}) {
    if (own.get() == bin.get()) {
      return own;
    }
  }
  return boost::shared_ptr<ActionBin>();
}

// Mixers and tracks.

boost::shared_ptr<const KelMediaLib::VisualMixer> InternalOrvProject::visualMixer() const {
  return project_->visualMixer();
}

boost::shared_ptr<const KelMediaLib::AudioMixer> InternalOrvProject::audioMixer() const {
  return project_->audioMixer();
}

boost::shared_ptr<const KelMediaLib::VisualMixer> InternalOrvProject::newVisualMixer(float width,
                                                                                     float height) {
  return project_->newVisualMixer(width, height);
}

void InternalOrvProject::newVisualMixer(boost::shared_ptr<KelMediaLib::VisualMixer> mixer) {
  project_->newVisualMixer(mixer);
}

boost::shared_ptr<KelMediaLib::VisualMixer> InternalOrvProject::removeVisualMixer() {
  return project_->removeVisualMixer();
}

boost::shared_ptr<const KelMediaLib::AudioMixer> InternalOrvProject::newAudioMixer(
    unsigned int sampleRate, unsigned int bitDepth, unsigned int numChannels) {
  return project_->newAudioMixer(sampleRate, bitDepth, numChannels);
}

void InternalOrvProject::newAudioMixer(boost::shared_ptr<KelMediaLib::AudioMixer> mixer) {
  project_->newAudioMixer(mixer);
}

boost::shared_ptr<KelMediaLib::AudioMixer> InternalOrvProject::removeAudioMixer() {
  return project_->removeAudioMixer();
}

boost::shared_ptr<const KelMediaLib::VisualTrack> InternalOrvProject::newVisualTrack(int index) {
  return project_->newVisualTrack(index);
}

boost::shared_ptr<const KelMediaLib::VisualTrack> InternalOrvProject::newImageTrack(int index) {
  return project_->newImageTrack(index);
}

boost::shared_ptr<const KelMediaLib::AudioTrack> InternalOrvProject::newAudioTrack(int index) {
  return project_->newAudioTrack(index);
}

boost::shared_ptr<const KelMediaLib::Track> InternalOrvProject::newTrack(
    boost::shared_ptr<const KelMediaLib::Mixer> mixer, int index) {
  return project_->newTrack(mixer, index);
}

void InternalOrvProject::addTrack(boost::shared_ptr<const KelMediaLib::Mixer> mixer,
                                  boost::shared_ptr<KelMediaLib::Track> track, int index) {
  project_->addTrack(mixer, track, index);
}

int InternalOrvProject::removeTrack(boost::shared_ptr<const KelMediaLib::Mixer> mixer,
                                    boost::shared_ptr<const KelMediaLib::Track> track) {
  return project_->removeTrack(mixer, track);
}

void InternalOrvProject::swapTrackOrder(boost::shared_ptr<const KelMediaLib::Mixer> mixer,
                                        boost::shared_ptr<const KelMediaLib::Track> first,
                                        boost::shared_ptr<const KelMediaLib::Track> second) {
  project_->swapTrackOrder(mixer, first, second);
}

// Media.

// Every media that is added gets its actions back, whether it was ever
// removed or not: a new media simply has none waiting. The zombies return
// through the bin alone, as their key frames never left the parameters.
void InternalOrvProject::addMedia(boost::shared_ptr<const KelMediaLib::Track> track,
                                  boost::shared_ptr<const Media> media, long long time) {
  const Bins bins{actionBin_, zdActionBin_, audioActionBin_};
  if (media && !media->cloneDecorator()) {
    media->setCloneDecorator(new CloneHandler(
        graveyard_.get(), std::vector<boost::weak_ptr<ActionBin>>(bins.begin(), bins.end())));
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

void InternalOrvProject::move(boost::shared_ptr<const KelMediaLib::Track> track,
                              boost::shared_ptr<const Media> media, long long delta) {
  project_->move(track, media, delta);
}

void InternalOrvProject::trimStart(boost::shared_ptr<const KelMediaLib::Track> track,
                                   boost::shared_ptr<const Media> media, long long delta) {
  project_->trimStart(track, media, delta);
}

void InternalOrvProject::trimEnd(boost::shared_ptr<const KelMediaLib::Track> track,
                                 boost::shared_ptr<const Media> media, long long delta) {
  project_->trimEnd(track, media, delta);
}

double InternalOrvProject::stretch(boost::shared_ptr<const KelMediaLib::Track> track,
                                   boost::shared_ptr<const Media> media, double scalar) {
  return project_->stretch(track, media, scalar);
}

void InternalOrvProject::addLink(boost::shared_ptr<const Media> first,
                                 boost::shared_ptr<const Media> second) {
  project_->addLink(first, second);
}

void InternalOrvProject::addLink(boost::shared_ptr<const Media> first,
                                 boost::shared_ptr<const Media> second, int firstIndex,
                                 int secondIndex) {
  project_->addLink(first, second, firstIndex, secondIndex);
}

void InternalOrvProject::removeLink(boost::shared_ptr<const Media> first,
                                    boost::shared_ptr<const Media> second) {
  project_->removeLink(first, second);
}

// Effects.

void InternalOrvProject::addEffect(boost::shared_ptr<const KelMediaLib::Effectable> effectable,
                                   boost::shared_ptr<const KelMediaLib::Effect> effect) {
  project_->addEffect(effectable, effect);
}

void InternalOrvProject::insertEffect(boost::shared_ptr<const KelMediaLib::Effectable> effectable,
                                      boost::shared_ptr<const KelMediaLib::Effect> effect,
                                      int index) {
  project_->insertEffect(effectable, effect, index);
}

void InternalOrvProject::swapEffectOrder(
    boost::shared_ptr<const KelMediaLib::Effectable> effectable, int first, int second) {
  project_->swapEffectOrder(effectable, first, second);
}

int InternalOrvProject::removeEffect(boost::shared_ptr<const KelMediaLib::Effectable> effectable,
                                     boost::shared_ptr<const KelMediaLib::Effect> effect) {
  return project_->removeEffect(effectable, effect);
}

// Sources.

boost::shared_ptr<const KelMediaLib::Source> InternalOrvProject::loadSource(
    const std::string& fileName) {
  return project_->loadSource(fileName);
}

void InternalOrvProject::loadSource(boost::shared_ptr<const KelMediaLib::Source> source) {
  project_->loadSource(source);
}

void InternalOrvProject::unloadSource(boost::shared_ptr<const KelMediaLib::Source> source) {
  project_->unloadSource(source);
}

void InternalOrvProject::addClipping(boost::shared_ptr<KelMediaLib::Clipping> clipping) {
  project_->addClipping(clipping);
}

void InternalOrvProject::removeClipping(boost::shared_ptr<KelMediaLib::Clipping> clipping) {
  project_->removeClipping(clipping);
}

// A null parameter is the inner project's to refuse.
void InternalOrvProject::moveParameterKeyFrame(
    boost::shared_ptr<const KelMediaLib::Parametric> parametric,
    boost::shared_ptr<const ParameterInterface> parameter, long long oldTime, long long newTime) {
  if (parameter) {
    throwIfMovingPastActions(*parameter, oldTime, newTime);
  }
  project_->moveParameterKeyFrame(parametric, parameter, oldTime, newTime);
}

KelMediaLib::EdgeModCommandHandler* InternalOrvProject::edgeModCommandHandler() {
  return project_->edgeModCommandHandler();
}

}  // namespace OrvMediaLib
