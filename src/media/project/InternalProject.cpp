#include "media/project/InternalProject.h"

#include "core/Command.h"
#include "core/EditJournal.h"
#include "core/KelMediaLibException.h"
#include "core/ReadWriteMutex.h"
#include "core/SubProject.h"
#include "core/XMLText.h"
#include "media/commands/ChangeSourcesFileCmd.h"
#include "media/edges/EdgeModifiable.h"
#include "media/edges/EdgeModification.h"
#include "media/effects/Effect.h"
#include "media/effects/Effectable.h"
#include "media/media/FileRepresentation.h"
#include "media/media/Media.h"
#include "media/project/ClipBoard.h"
#include "media/project/CommandObserver.h"
#include "media/project/SourceBin.h"
#include "media/sources/Clipping.h"
#include "media/sources/MediaFileStats.h"
#include "media/sources/Source.h"
#include "media/timeline/AudioMixer.h"
#include "media/timeline/AudioTrack.h"
#include "media/timeline/ImageTrack.h"
#include "media/timeline/Timeline.h"
#include "media/timeline/VisualMixer.h"
#include "media/timeline/VisualTrack.h"
#include "values/ParameterInterface.h"
#include "values/Parametric.h"

#include <boost/filesystem.hpp>
#include <boost/pointer_cast.hpp>

#include <algorithm>
#include <cmath>
#include <ostream>
#include <sstream>

namespace KelMediaLib {

namespace {

std::string label(const Media& media) {
  return "media " + std::to_string(media.xmlIdent());
}

std::string label(const Track& track) {
  return "track " + std::to_string(track.xmlIdent());
}

KelMediaLibException failure(const char* operation, const std::string& text) {
  return KelMediaLibException(std::string(operation) + ": " + text);
}

template <class T>
void require(const boost::shared_ptr<T>& object, const char* operation, const char* what) {
  if (!object) {
    throw failure(operation, std::string("no ") + what + " given");
  }
}

const char* sideName(EdgeSide side) {
  return side == EdgeSide::Left ? "left" : "right";
}

// The command runs its undo or redo, then the journal puts back exactly what
// it holds. When the journal holds the whole edit, it alone makes the model
// exact: the command's own replay runs under a scratch journal whose objects
// are then put back as they were before it, so that nothing the replay
// touches beyond the edit stays changed (re-adding an action moves key frames
// that take their interpolaters along, say), a failure of the replay loses
// nothing, and objects that note only the parts an edit changes (the places
// of a parameter) are found as the edit left them.
void replay(Command& command, CommandHandler* handler, const EditJournal* journal,
            bool (Command::*step)(CommandHandler*)) {
  if (!journal || journal->hasUnjournaledEdits()) {
    const EditJournal::Scope suspended(nullptr);
    (command.*step)(handler);
    return;
  }
  EditJournal scratch;
  {
    const EditJournal::Scope scope(&scratch);
    try {
      (command.*step)(handler);
    } catch (...) {
    }
  }
  const EditJournal::Scope suspended(nullptr);
  scratch.restoreBefore();
}

}  // namespace

InternalProject::InternalProject(EditRate editRate)
    : editRate_(editRate),
      timeline_(Timeline::create()),
      sourceBin_(SourceBin::create()),
      handler_(nullptr),
      combineNext_(false) {}

InternalProject::~InternalProject() = default;

boost::shared_ptr<InternalProject> InternalProject::create(EditRate editRate) {
  if (editRate.numerator() == 0) {
    std::ostringstream text;
    text << "a project's edit rate must be positive, not " << editRate;
    throw KelMediaLibException(text.str());
  }
  boost::shared_ptr<InternalProject> project(new InternalProject(editRate));
  project->self_ = boost::shared_ptr<const ThreadSafe>(project);
  project->selfRate_ = boost::shared_ptr<const ProjectEditRate>(project);
  project->clipBoard_ = ClipBoard::create(project->self_);
  return project;
}

void InternalProject::setCommandHandler(CommandHandler* handler) {
  handler_ = handler;
}

CommandHandler* InternalProject::commandHandler() {
  return handler_ ? handler_ : this;
}

// History.

bool InternalProject::execute(boost::shared_ptr<Command> command) {
  require(command, "execute", "command");
  {
    ReadWriteMutex::ScopedWriteLock lock(mutex());
    // A command run from inside another one belongs to the outer one's
    // journal.
    boost::shared_ptr<EditJournal> journal;
    if (!EditJournal::current()) {
      journal.reset(new EditJournal());
    }
    bool ran = false;
    {
      const EditJournal::Scope scope(journal ? journal.get() : EditJournal::current());
      try {
        ran = command->execute(commandHandler());
      } catch (...) {
        // What the command changed before it failed goes back before the
        // exception leaves: a refused edit changes nothing.
        if (journal) {
          journal->restoreBefore();
        }
        throw;
      }
    }
    if (!ran) {
      if (journal) {
        journal->restoreBefore();
      }
      return false;
    }
    if (journal) {
      journal->seal();
    }
    // Under a journal that keeps nothing (a project being read) nobody will
    // undo: the history keeps nothing either.
    if (journal || EditJournal::current()->keeps()) {
      history_.record(command, journal);
      if (combineNext_) {
        combineNext_ = false;
        history_.combineLast();
      }
    }
  }
  tell(&CommandObserver::commandExecuted, command);
  return true;
}

void InternalProject::undo() {
  boost::shared_ptr<Command> command;
  {
    ReadWriteMutex::ScopedWriteLock lock(mutex());
    command = history_.nextUndo();
    const boost::shared_ptr<const EditJournal> journal = history_.nextUndoJournal();
    replay(*command, commandHandler(), journal.get(), &Command::unexecute);
    if (journal) {
      journal->restoreBefore();
    }
    history_.stepBack();
    combineNext_ = false;
  }
  tell(&CommandObserver::commandUndone, command);
}

void InternalProject::redo() {
  boost::shared_ptr<Command> command;
  {
    ReadWriteMutex::ScopedWriteLock lock(mutex());
    command = history_.nextRedo();
    const boost::shared_ptr<const EditJournal> journal = history_.nextRedoJournal();
    replay(*command, commandHandler(), journal.get(), &Command::reexecute);
    if (journal) {
      journal->restoreAfter();
    }
    history_.stepForward();
    combineNext_ = false;
  }
  tell(&CommandObserver::commandRedone, command);
}

void InternalProject::clearHistory() {
  ReadWriteMutex::ScopedWriteLock lock(mutex());
  history_.clear();
  combineNext_ = false;
}

void InternalProject::combineLastCommands() {
  ReadWriteMutex::ScopedWriteLock lock(mutex());
  history_.combineLast();
}

void InternalProject::combineNextCommand() {
  if (!history_.canUndo()) {
    throw KelMediaLibException("combineNextCommand: there is no done command to join");
  }
  combineNext_ = true;
}

CommandHistoryState InternalProject::commandState() const {
  return history_.state();
}

void InternalProject::restoreCommandState(const CommandHistoryState& state) {
  const unsigned int target = history_.positionOf(state);
  while (history_.position() > target) {
    undo();
  }
  while (history_.position() < target) {
    redo();
  }
}

void InternalProject::attachCommandObserver(CommandObserver* observer) {
  if (!observer) {
    throw failure("attachCommandObserver", "no observer given");
  }
  if (std::find(observers_.begin(), observers_.end(), observer) == observers_.end()) {
    observers_.push_back(observer);
  }
}

void InternalProject::detachCommandObserver(CommandObserver* observer) {
  observers_.erase(std::remove(observers_.begin(), observers_.end(), observer), observers_.end());
}

void InternalProject::tell(Report report, const boost::shared_ptr<const Command>& command) {
  // A copy: an observer may detach itself or others while it is told.
  const std::vector<CommandObserver*> observers = observers_;
  for (CommandObserver* observer : observers) {
    if (std::find(observers_.begin(), observers_.end(), observer) != observers_.end()) {
      (observer->*report)(command);
    }
  }
  notify();
}

boost::shared_ptr<const Timeline> InternalProject::timeline() const {
  return timeline_;
}

boost::shared_ptr<const SourceBin> InternalProject::sourceBin() const {
  return sourceBin_;
}

void InternalProject::changeSourcesFile(boost::shared_ptr<const Source> source,
                                        const std::string& path) {
  require(source, "changeSourcesFile", "source");
  boost::system::error_code error;
  if (!boost::filesystem::exists(path, error)) {
    throw failure("changeSourcesFile",
                  "there is no file \"" + path + "\" to relink " + "the source to");
  }
  bool inBin = false;
  {
    ReadWriteMutex::ScopedReadLock lock(mutex());
    inBin = sourceBin_->containsSource(source.get());
  }
  if (!inBin) {
    throw failure("changeSourcesFile", "the source of \"" + source->mediaFileStats()->filename() +
                                           "\" isn't in the source bin");
  }
  execute(ChangeSourcesFileCmd::create(source, path));
}

void InternalProject::addSourceBinSentry(boost::shared_ptr<SourceBinSentry> sentry) {
  ReadWriteMutex::ScopedWriteLock lock(mutex());
  sourceBin_->addSentry(sentry);
}

void InternalProject::xmlName(Options& options) const {
  writeLiteral(options.out, "Project");
}

void InternalProject::xmlAttributes(Options& options) const {
  std::ostream& out = options.out;
  out << "id=\"";
  writeXMLValue(out, options.ident(*this));
  out << "\" editRate=\"";
  writeXMLValue(out, editRate_.numerator());
  out << '/';
  writeXMLValue(out, editRate_.denominator());
  out << "\" version=\"1.0\"";
}

void InternalProject::xmlBody(Options& options, int depth) const {
  sourceBin_->toXML(options, depth, std::string());
  timeline_->toXML(options, depth, std::string());
}

// Checks shared by the handler operations.

boost::shared_ptr<Mixer> InternalProject::ownMixer(const boost::shared_ptr<const Mixer>& mixer,
                                                   const char* operation) const {
  require(mixer, operation, "mixer");
  if (mixer == timeline_->visualMixer()) {
    return timeline_->visualMixer();
  }
  if (mixer == timeline_->audioMixer()) {
    return timeline_->audioMixer();
  }
  throw failure(operation, "the mixer isn't one of this project's timeline");
}

boost::shared_ptr<Track> InternalProject::ownTrack(const boost::shared_ptr<const Track>& track,
                                                   const char* operation) const {
  require(track, operation, "track");
  const boost::shared_ptr<const Mixer> mixer = track->parent().lock();
  if (!mixer || (mixer != timeline_->visualMixer() && mixer != timeline_->audioMixer())) {
    throw failure(operation, label(*track) + " isn't in this project's timeline");
  }
  return boost::const_pointer_cast<Track>(track);
}

bool InternalProject::isPartOfProject(const SubProject& part) const {
  const boost::shared_ptr<const ThreadSafe> owner = part.projectMutex().lock();
  return owner && &owner->mutex() == &mutex();
}

boost::shared_ptr<Media> InternalProject::mediaOnTrack(const boost::shared_ptr<const Track>& track,
                                                       const boost::shared_ptr<const Media>& media,
                                                       const char* operation) const {
  ownTrack(track, operation);
  require(media, operation, "media");
  // The parent is set exactly while the media is on the track, and asking it
  // costs nothing where a search of the track costs its length.
  if (media->parent() != track) {
    throw failure(operation, label(*media) + " isn't on " + label(*track));
  }
  return boost::const_pointer_cast<Media>(media);
}

// Mixers.

boost::shared_ptr<const VisualMixer> InternalProject::visualMixer() const {
  return timeline_->visualMixer();
}

boost::shared_ptr<const AudioMixer> InternalProject::audioMixer() const {
  return timeline_->audioMixer();
}

boost::shared_ptr<const VisualMixer> InternalProject::newVisualMixer(float width, float height) {
  EditJournal::noteUnjournaledEdit();
  const boost::shared_ptr<VisualMixer> mixer = VisualMixer::create(width, height, self_);
  timeline_->setVisualMixer(mixer);
  return mixer;
}

void InternalProject::newVisualMixer(boost::shared_ptr<VisualMixer> mixer) {
  EditJournal::noteUnjournaledEdit();
  require(mixer, "newVisualMixer", "mixer");
  timeline_->setVisualMixer(mixer);
}

boost::shared_ptr<VisualMixer> InternalProject::removeVisualMixer() {
  EditJournal::noteUnjournaledEdit();
  const boost::shared_ptr<VisualMixer> mixer = timeline_->visualMixer();
  timeline_->setVisualMixer(boost::shared_ptr<VisualMixer>());
  return mixer;
}

boost::shared_ptr<const AudioMixer> InternalProject::newAudioMixer(unsigned int sampleRate,
                                                                   unsigned int bitDepth,
                                                                   unsigned int numChannels) {
  EditJournal::noteUnjournaledEdit();
  const boost::shared_ptr<AudioMixer> mixer =
      AudioMixer::create(sampleRate, bitDepth, numChannels, self_);
  timeline_->setAudioMixer(mixer);
  return mixer;
}

void InternalProject::newAudioMixer(boost::shared_ptr<AudioMixer> mixer) {
  EditJournal::noteUnjournaledEdit();
  require(mixer, "newAudioMixer", "mixer");
  timeline_->setAudioMixer(mixer);
}

boost::shared_ptr<AudioMixer> InternalProject::removeAudioMixer() {
  EditJournal::noteUnjournaledEdit();
  const boost::shared_ptr<AudioMixer> mixer = timeline_->audioMixer();
  timeline_->setAudioMixer(boost::shared_ptr<AudioMixer>());
  return mixer;
}

// Tracks.

boost::shared_ptr<Track> InternalProject::insertNewTrack(const boost::shared_ptr<Mixer>& mixer,
                                                         boost::shared_ptr<Track> track, int index,
                                                         const char* operation) {
  if (index < -1) {
    throw failure(operation, "the track index " + std::to_string(index) + " is negative");
  }
  if (index > mixer->numTracks()) {
    index = -1;
  }
  mixer->insertTrack(track, index);
  return track;
}

boost::shared_ptr<const VisualTrack> InternalProject::newVisualTrack(int index) {
  EditJournal::noteUnjournaledEdit();
  const boost::shared_ptr<VisualMixer> mixer = timeline_->visualMixer();
  if (!mixer) {
    throw failure("newVisualTrack", "the project has no visual mixer");
  }
  const boost::shared_ptr<VisualTrack> track = VisualTrack::create(self_);
  insertNewTrack(mixer, track, index, "newVisualTrack");
  return track;
}

boost::shared_ptr<const VisualTrack> InternalProject::newImageTrack(int index) {
  EditJournal::noteUnjournaledEdit();
  const boost::shared_ptr<VisualMixer> mixer = timeline_->visualMixer();
  if (!mixer) {
    throw failure("newImageTrack", "the project has no visual mixer");
  }
  const boost::shared_ptr<VisualTrack> track = ImageTrack::create(self_);
  insertNewTrack(mixer, track, index, "newImageTrack");
  return track;
}

boost::shared_ptr<const AudioTrack> InternalProject::newAudioTrack(int index) {
  EditJournal::noteUnjournaledEdit();
  const boost::shared_ptr<AudioMixer> mixer = timeline_->audioMixer();
  if (!mixer) {
    throw failure("newAudioTrack", "the project has no audio mixer");
  }
  const boost::shared_ptr<AudioTrack> track = AudioTrack::create(self_);
  insertNewTrack(mixer, track, index, "newAudioTrack");
  return track;
}

boost::shared_ptr<const Track> InternalProject::newTrack(boost::shared_ptr<const Mixer> mixer,
                                                         int index) {
  EditJournal::noteUnjournaledEdit();
  const boost::shared_ptr<Mixer> own = ownMixer(mixer, "newTrack");
  return insertNewTrack(own, own->makeTrack(self_), index, "newTrack");
}

void InternalProject::addTrack(boost::shared_ptr<const Mixer> mixer, boost::shared_ptr<Track> track,
                               int index) {
  EditJournal::noteUnjournaledEdit();
  const boost::shared_ptr<Mixer> own = ownMixer(mixer, "addTrack");
  require(track, "addTrack", "track");
  if (track->parent().lock()) {
    throw failure("addTrack", label(*track) + " is in a mixer already");
  }
  insertNewTrack(own, track, index, "addTrack");
}

int InternalProject::removeTrack(boost::shared_ptr<const Mixer> mixer,
                                 boost::shared_ptr<const Track> track) {
  EditJournal::noteUnjournaledEdit();
  const boost::shared_ptr<Mixer> own = ownMixer(mixer, "removeTrack");
  require(track, "removeTrack", "track");
  const int index = own->indexOfTrack(track.get());
  if (index < 0) {
    throw failure("removeTrack", label(*track) + " isn't in the mixer");
  }
  if (track->numMedias() > 0) {
    throw failure("removeTrack", label(*track) + " still holds " +
                                     std::to_string(track->numMedias()) +
                                     " media; take them off first");
  }
  own->removeTrack(index);
  return index;
}

void InternalProject::swapTrackOrder(boost::shared_ptr<const Mixer> mixer,
                                     boost::shared_ptr<const Track> first,
                                     boost::shared_ptr<const Track> second) {
  EditJournal::noteUnjournaledEdit();
  const boost::shared_ptr<Mixer> own = ownMixer(mixer, "swapTrackOrder");
  require(first, "swapTrackOrder", "first track");
  require(second, "swapTrackOrder", "second track");
  const int firstIndex = own->indexOfTrack(first.get());
  const int secondIndex = own->indexOfTrack(second.get());
  if (firstIndex < 0 || secondIndex < 0) {
    throw failure("swapTrackOrder",
                  label(*(firstIndex < 0 ? first : second)) + " isn't in the mixer");
  }
  own->swapTracks(firstIndex, secondIndex);
}

// Media.

void InternalProject::addMedia(boost::shared_ptr<const Track> track,
                               boost::shared_ptr<const Media> media, long long time) {
  EditJournal::noteUnjournaledEdit();
  const boost::shared_ptr<Track> own = ownTrack(track, "addMedia");
  require(media, "addMedia", "media");
  if (!isPartOfProject(*media)) {
    throw failure("addMedia", label(*media) + " belongs to another project");
  }
  if (media->parent()) {
    throw failure("addMedia", label(*media) + " is on a track already");
  }
  if (time < 0) {
    throw failure("addMedia",
                  "can't put " + label(*media) + " at the negative time " + std::to_string(time));
  }
  if (!own->accepts(*media)) {
    throw failure("addMedia",
                  label(*track) + " doesn't take media of the kind of " + label(*media));
  }
  const boost::shared_ptr<Media> writable = boost::const_pointer_cast<Media>(media);
  const long long previousStart = media->range().start;
  writable->setStart(time);
  try {
    own->insertMedia(writable);
  } catch (...) {
    writable->setStart(previousStart);
    throw;
  }
}

MediaPlacements InternalProject::removeMedia(boost::shared_ptr<const Track> track,
                                             boost::shared_ptr<const Media> media) {
  EditJournal::noteUnjournaledEdit();
  mediaOnTrack(track, media, "removeMedia");
  MediaPlacements placements{MediaPlacement{track, media, media->range().start}};
  for (const boost::weak_ptr<const Media>& link : media->links()) {
    const boost::shared_ptr<const Media> linked = link.lock();
    const boost::shared_ptr<const Track> linkedTrack = linked ? linked->parent() : nullptr;
    if (linkedTrack) {
      placements.push_back(MediaPlacement{linkedTrack, linked, linked->range().start});
    }
  }
  for (const MediaPlacement& placement : placements) {
    boost::const_pointer_cast<Track>(placement.track)->eraseMedia(placement.media.get());
  }
  return placements;
}

void InternalProject::removeMedia(boost::shared_ptr<const Track> track,
                                  boost::shared_ptr<const Media> media, long long time) {
  EditJournal::noteUnjournaledEdit();
  const boost::shared_ptr<Media> writable = mediaOnTrack(track, media, "removeMedia");
  if (media->range().start != time) {
    throw failure("removeMedia", label(*media) + " starts at " +
                                     std::to_string(media->range().start) + ", not at " +
                                     std::to_string(time));
  }
  boost::const_pointer_cast<Track>(track)->eraseMedia(writable.get());
}

void InternalProject::move(boost::shared_ptr<const Track> track,
                           boost::shared_ptr<const Media> media, long long delta) {
  EditJournal::noteUnjournaledEdit();
  const boost::shared_ptr<Media> writable = mediaOnTrack(track, media, "move");
  const long long start = media->range().start + delta;
  if (start < 0) {
    throw failure("move", "moving " + label(*media) + " by " + std::to_string(delta) +
                              " would put it at " + std::to_string(start) + ", before 0");
  }
  const long long previousStart = media->range().start;
  writable->setStart(start);
  boost::const_pointer_cast<Track>(track)->placeAgain(writable.get(), previousStart);
}

void InternalProject::trimStart(boost::shared_ptr<const Track> track,
                                boost::shared_ptr<const Media> media, long long delta) {
  EditJournal::noteUnjournaledEdit();
  const boost::shared_ptr<Media> writable = mediaOnTrack(track, media, "trimStart");
  const Range<long long> range = media->range();
  if (delta > range.duration || range.start + delta < 0) {
    throw failure("trimStart", "can't trim " + std::to_string(delta) + " off the start of " +
                                   label(*media) + ", which starts at " +
                                   std::to_string(range.start) + " and lasts " +
                                   std::to_string(range.duration));
  }
  writable->trimStart(delta);
  boost::const_pointer_cast<Track>(track)->placeAgain(writable.get(), range.start);
}

void InternalProject::trimEnd(boost::shared_ptr<const Track> track,
                              boost::shared_ptr<const Media> media, long long delta) {
  EditJournal::noteUnjournaledEdit();
  const boost::shared_ptr<Media> writable = mediaOnTrack(track, media, "trimEnd");
  if (delta > media->range().duration) {
    throw failure("trimEnd", "can't trim " + std::to_string(delta) + " off the end of " +
                                 label(*media) + ", which lasts " +
                                 std::to_string(media->range().duration));
  }
  writable->trimEnd(delta);
}

double InternalProject::stretch(boost::shared_ptr<const Track> track,
                                boost::shared_ptr<const Media> media, double scalar) {
  EditJournal::noteUnjournaledEdit();
  const boost::shared_ptr<Media> writable = mediaOnTrack(track, media, "stretch");
  const double previous = media->scalar();
  writable->setScalar(scalar);
  return previous;
}

void InternalProject::addLink(boost::shared_ptr<const Media> first,
                              boost::shared_ptr<const Media> second) {
  EditJournal::noteUnjournaledEdit();
  addLink(first, second, -1, -1);
}

void InternalProject::addLink(boost::shared_ptr<const Media> first,
                              boost::shared_ptr<const Media> second, int firstIndex,
                              int secondIndex) {
  EditJournal::noteUnjournaledEdit();
  require(first, "addLink", "first media");
  require(second, "addLink", "second media");
  if (first == second) {
    throw failure("addLink", "can't link " + label(*first) + " to itself");
  }
  if (first->isLinkedTo(second.get()) || second->isLinkedTo(first.get())) {
    throw failure("addLink", label(*first) + " and " + label(*second) + " are linked already");
  }
  const auto checkIndex = [](const Media& media, int index) {
    if (index < -1 || index > static_cast<int>(media.links().size())) {
      throw failure("addLink", "the link index " + std::to_string(index) + " is outside the " +
                                   std::to_string(media.links().size()) + " links of " +
                                   label(media));
    }
  };
  checkIndex(*first, firstIndex);
  checkIndex(*second, secondIndex);
  boost::const_pointer_cast<Media>(first)->insertLink(second, firstIndex);
  boost::const_pointer_cast<Media>(second)->insertLink(first, secondIndex);
}

void InternalProject::removeLink(boost::shared_ptr<const Media> first,
                                 boost::shared_ptr<const Media> second) {
  EditJournal::noteUnjournaledEdit();
  require(first, "removeLink", "first media");
  require(second, "removeLink", "second media");
  if (!first->isLinkedTo(second.get()) || !second->isLinkedTo(first.get())) {
    throw failure("removeLink", label(*first) + " and " + label(*second) + " aren't linked");
  }
  boost::const_pointer_cast<Media>(first)->removeLink(second.get());
  boost::const_pointer_cast<Media>(second)->removeLink(first.get());
}

// Effects.

void InternalProject::addEffect(boost::shared_ptr<const Effectable> effectable,
                                boost::shared_ptr<const Effect> effect) {
  EditJournal::noteUnjournaledEdit();
  insertEffect(effectable, effect, -1);
}

void InternalProject::insertEffect(boost::shared_ptr<const Effectable> effectable,
                                   boost::shared_ptr<const Effect> effect, int index) {
  EditJournal::noteUnjournaledEdit();
  require(effectable, "insertEffect", "media");
  require(effect, "insertEffect", "effect");
  boost::const_pointer_cast<Effectable>(effectable)
      ->insertEffect(boost::const_pointer_cast<Effect>(effect), index);
}

void InternalProject::swapEffectOrder(boost::shared_ptr<const Effectable> effectable, int first,
                                      int second) {
  EditJournal::noteUnjournaledEdit();
  require(effectable, "swapEffectOrder", "media");
  boost::const_pointer_cast<Effectable>(effectable)->swapEffects(first, second);
}

int InternalProject::removeEffect(boost::shared_ptr<const Effectable> effectable,
                                  boost::shared_ptr<const Effect> effect) {
  EditJournal::noteUnjournaledEdit();
  require(effectable, "removeEffect", "media");
  require(effect, "removeEffect", "effect");
  const int index = effectable->indexOfEffect(effect.get());
  if (index < 0) {
    throw failure("removeEffect", "the effect \"" + effect->name() + "\" isn't on the media");
  }
  boost::const_pointer_cast<Effectable>(effectable)->removeEffect(index);
  return index;
}

void InternalProject::moveParameterKeyFrame(boost::shared_ptr<const Parametric> parametric,
                                            boost::shared_ptr<const ParameterInterface> parameter,
                                            long long oldTime, long long newTime) {
  require(parametric, "moveParameterKeyFrame", "parametric");
  require(parameter, "moveParameterKeyFrame", "parameter");
  const SubProject* part = dynamic_cast<const SubProject*>(parametric.get());
  if (part && !isPartOfProject(*part)) {
    throw failure("moveParameterKeyFrame", "the parametric belongs to another project");
  }
  if (parametric->parameterNamed(parameter->name()) != parameter) {
    throw failure("moveParameterKeyFrame",
                  "the parameter \"" + parameter->name() + "\" isn't one of the parametric's");
  }
  boost::const_pointer_cast<ParameterInterface>(parameter)->moveKeyFrame(oldTime, newTime);
}

// Sources.

boost::shared_ptr<const Source> InternalProject::loadSource(const std::string& fileName) {
  EditJournal::noteUnjournaledEdit();
  const boost::shared_ptr<const Source> source =
      Source::create(MediaFileStats::create(fileName), self_, selfRate_);
  sourceBin_->addSource(source);
  return source;
}

void InternalProject::loadSource(boost::shared_ptr<const Source> source) {
  EditJournal::noteUnjournaledEdit();
  sourceBin_->addSource(source);
}

void InternalProject::unloadSource(boost::shared_ptr<const Source> source) {
  require(source, "unloadSource", "source");
  // A media on the timeline that shows the source would be left showing
  // nothing: the project could no longer be written.
  int showing = 0;
  for (const boost::shared_ptr<const Media>& media : timeline_->allMedias()) {
    const auto* file = dynamic_cast<const FileRepresentation*>(media.get());
    if (file && file->source() == source) ++showing;
  }
  if (showing > 0) {
    throw KelMediaLibException("can't unload the source \"" + source->mediaFileStats()->filename() +
                               "\": " + std::to_string(showing) + " media on the timeline show it");
  }
  EditJournal::noteUnjournaledEdit();
  sourceBin_->removeSource(source.get());
}

void InternalProject::addClipping(boost::shared_ptr<Clipping> clipping) {
  EditJournal::noteUnjournaledEdit();
  sourceBin_->addClipping(clipping);
}

void InternalProject::removeClipping(boost::shared_ptr<Clipping> clipping) {
  EditJournal::noteUnjournaledEdit();
  require(clipping, "removeClipping", "clipping");
  sourceBin_->removeClipping(clipping.get());
}

// Edges.

void InternalProject::insertEdgeModification(boost::shared_ptr<const EdgeModifiable> edgeModifiable,
                                             EdgeSide side,
                                             boost::shared_ptr<const EdgeModification> modification,
                                             int index) {
  EditJournal::noteUnjournaledEdit();
  require(edgeModifiable, "insertEdgeModification", "media");
  require(modification, "insertEdgeModification", "modification");
  const boost::shared_ptr<EdgeModifiable> writable =
      boost::const_pointer_cast<EdgeModifiable>(edgeModifiable);
  if (side == EdgeSide::Left) {
    writable->insertLeftEdgeModification(modification, index);
  } else {
    writable->insertRightEdgeModification(modification, index);
  }
}

boost::shared_ptr<const EdgeModification> InternalProject::removeEdgeModification(
    boost::shared_ptr<const EdgeModifiable> edgeModifiable, EdgeSide side, int index) {
  EditJournal::noteUnjournaledEdit();
  require(edgeModifiable, "removeEdgeModification", "media");
  const boost::shared_ptr<EdgeModifiable> writable =
      boost::const_pointer_cast<EdgeModifiable>(edgeModifiable);
  return side == EdgeSide::Left ? writable->removeLeftEdgeModification(index)
                                : writable->removeRightEdgeModification(index);
}

void InternalProject::changeEdgeLength(boost::shared_ptr<const EdgeModifiable> edgeModifiable,
                                       EdgeSide side, long long delta) {
  EditJournal::noteUnjournaledEdit();
  require(edgeModifiable, "changeEdgeLength", "media");
  const long long length =
      side == EdgeSide::Left ? edgeModifiable->leftEdgeLength() : edgeModifiable->rightEdgeLength();
  if (length + delta < 0) {
    throw failure("changeEdgeLength", std::string("the ") + sideName(side) + " edge is " +
                                          std::to_string(length) + " long; a change by " +
                                          std::to_string(delta) + " would make it negative");
  }
  const boost::shared_ptr<EdgeModifiable> writable =
      boost::const_pointer_cast<EdgeModifiable>(edgeModifiable);
  if (side == EdgeSide::Left) {
    writable->setLeftEdgeLength(length + delta);
  } else {
    writable->setRightEdgeLength(length + delta);
  }
}

}  // namespace KelMediaLib
