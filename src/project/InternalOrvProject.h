#pragma once

#include "commands/OrvCommandHandler.h"
#include "core/CommandHandler.h"
#include "project/OrvProject.h"

#include <boost/shared_ptr.hpp>

#include <array>

#include <memory>
#include <string>

namespace KelMediaLib {
class InternalProject;
class ParameterInterface;
}  // namespace KelMediaLib

namespace OrvMediaLib {

class ActionGraveyard;

/// The one concrete `OrvProject`. It wraps an inner project of the media
/// model and installs itself as that project's `CommandHandler`, so that
/// every timeline edit of every command comes back through it: most pass
/// straight on, while adding and removing media also move the media's
/// actions between the bins and the graveyard. As `OrvCommandHandler` it
/// edits actions and keeps their key frames in step with the parameters.
///
/// Key frame rule on a parameter of doubles: at rest it has one key frame,
/// at time 0; under actions it has a pair for each range and at most one
/// more at 0. The first pair uses the resting key frame up; the last pair
/// going brings it back.
///
/// No locks are taken here: the inner project holds its write lock around
/// each command, and `mutex()` is the inner project's.
class InternalOrvProject : public OrvProject,
                           public OrvCommandHandler,
                           public KelMediaLib::CommandHandler {
 public:
  /// A new project around a new inner project at `numerator`/`denominator`
  /// (normalised). Throws as `OrvProject::create`.
  static boost::shared_ptr<InternalOrvProject> create(unsigned int numerator,
                                                      unsigned int denominator);
  /// A project around `project`, which must be an `InternalProject` made by
  /// the media model (the file reader's way); it isn't checked.
  static boost::shared_ptr<InternalOrvProject> create(
      boost::shared_ptr<KelMediaLib::Project> project);

  /// The graveyard goes first, the inner project last.
  ~InternalOrvProject() override;

  /// "OrvProject".
  void xmlName(Options& options) const override;
  /// `version="1.0"`.
  void xmlAttributes(Options& options) const override;
  /// The inner project, then the action bins as `name="actionBin"`,
  /// `name="zdActionBin"` and `name="audioActionBin"`, all at `depth`. The
  /// edge transition bins and the graveyard aren't written.
  void xmlBody(Options& options, int depth) const override;

  // The history and the whole project: passed to the inner project.
  bool execute(boost::shared_ptr<KelMediaLib::Command> command) override;
  void undo() override;
  void redo() override;
  void combineLastCommands() override;
  void combineNextCommand() override;
  KelMediaLib::CommandHistoryState commandState() const override;
  void restoreCommandState(const KelMediaLib::CommandHistoryState& state) override;
  void attachCommandObserver(KelMediaLib::CommandObserver* observer) override;
  void detachCommandObserver(KelMediaLib::CommandObserver* observer) override;
  boost::shared_ptr<const KelMediaLib::Timeline> timeline() const override;
  boost::shared_ptr<const KelMediaLib::SourceBin> sourceBin() const override;
  const KelMediaLib::CommandHistory& commandHistory() const override;
  boost::shared_ptr<KelMediaLib::ClipBoard> clipBoard() override;
  void changeSourcesFile(boost::shared_ptr<const KelMediaLib::Source> source,
                         const std::string& path) override;
  void addSourceBinSentry(boost::shared_ptr<KelMediaLib::SourceBinSentry> sentry) override;

  bool orvExecute(boost::shared_ptr<OrvCommand> command) override;
  boost::shared_ptr<const ActionBin> actionBin() const override;
  boost::shared_ptr<const ActionBin> zdActionBin() const override;
  boost::shared_ptr<const ActionBin> audioActionBin() const override;
  boost::shared_ptr<EdgeTransitionBin> videoEdgeTransitionBin() const override;
  boost::shared_ptr<EdgeTransitionBin> audioEdgeTransitionBin() const override;
  /// Tests each range's left key frame twice, drops a resting key frame
  /// that a file left beside the pairs, and adds the action to the bin
  /// without putting its key frames in again.
  void parserAddAction(boost::shared_ptr<const ActionBin> bin,
                       boost::shared_ptr<const Action> action) override;

  /// The inner project's lock, the lock of the whole model.
  KelMediaLib::ReadWriteMutex& mutex() const override;
  KelMediaLib::EditRate editRate() const override;

  // Actions. Times and deltas are key frame time of the action's media.
  /// Creates the action as `ActionCreator` does and adds it to `bin`.
  boost::shared_ptr<Action> addAction(boost::shared_ptr<const KelMediaLib::Media> media,
                                      boost::shared_ptr<const ActionBin> bin,
                                      ActionDescription const& description,
                                      KelMediaLib::Range<long long> const& range) override;
  /// Puts the action into `bin` (one of this project's; else "Invalid
  /// actionBin!"), then its ranges' key frames into their parameters. A
  /// collision leaves the parameters as they were.
  void addAction(boost::shared_ptr<const ActionBin> bin,
                 boost::shared_ptr<const Action> action) override;
  /// Moves the action by `delta` after testing the new place against the
  /// other actions of its media in its bin ("Action collision when moving").
  void moveAction(boost::shared_ptr<const Action> action, long long delta) override;
  /// Adds `range`, which must span the action's time range, to an action in
  /// a bin, with its key frames.
  void addParameterRange(boost::shared_ptr<const Action> action,
                         boost::shared_ptr<const ParameterRange> range) override;
  /// Not supported: always throws "Can't merge parameter ranges yet!".
  void mergeParameterRange(boost::shared_ptr<const Action> action,
                           boost::shared_ptr<const ParameterRange> range) override;
  /// Takes every range of `parameter` over `range` off the action, with its
  /// key frames; a parameter left without ranges gets its resting key frame.
  void removeParameterRange(boost::shared_ptr<const Action> action,
                            boost::shared_ptr<const KelMediaLib::Parameter<double>> parameter,
                            KelMediaLib::Range<long long> const& range) override;
  /// Takes the action's key frames out of the parameters and the action out
  /// of its bin, which is returned. The action keeps its ranges, so that it
  /// can be added again.
  boost::shared_ptr<ActionBin> removeAction(boost::shared_ptr<const Action> action) override;
  /// Moves the action's end `delta` earlier (negative: later).
  void trimActionEnd(boost::shared_ptr<const Action> action, long long delta) override;
  /// Moves the action's start `delta` later (negative: earlier).
  void trimActionStart(boost::shared_ptr<const Action> action, long long delta) override;

  /// The actions of media that are off the timeline, for reading.
  const ActionGraveyard& graveyard() const;

  /// The first of `actionBin`, `zdActionBin`, `audioActionBin` that holds
  /// the action; null if none does (an action in the graveyard).
  boost::shared_ptr<ActionBin> actionBinForAction(boost::shared_ptr<const Action> action) const;

  // Timeline edits: passed to the inner project, except as said.
  boost::shared_ptr<const KelMediaLib::VisualMixer> visualMixer() const override;
  boost::shared_ptr<const KelMediaLib::AudioMixer> audioMixer() const override;
  boost::shared_ptr<const KelMediaLib::VisualMixer> newVisualMixer(float width,
                                                                   float height) override;
  void newVisualMixer(boost::shared_ptr<KelMediaLib::VisualMixer> mixer) override;
  boost::shared_ptr<KelMediaLib::VisualMixer> removeVisualMixer() override;
  boost::shared_ptr<const KelMediaLib::AudioMixer> newAudioMixer(unsigned int sampleRate,
                                                                 unsigned int bitDepth,
                                                                 unsigned int numChannels) override;
  void newAudioMixer(boost::shared_ptr<KelMediaLib::AudioMixer> mixer) override;
  boost::shared_ptr<KelMediaLib::AudioMixer> removeAudioMixer() override;
  boost::shared_ptr<const KelMediaLib::VisualTrack> newVisualTrack(int index) override;
  boost::shared_ptr<const KelMediaLib::VisualTrack> newImageTrack(int index) override;
  boost::shared_ptr<const KelMediaLib::AudioTrack> newAudioTrack(int index) override;
  boost::shared_ptr<const KelMediaLib::Track> newTrack(
      boost::shared_ptr<const KelMediaLib::Mixer> mixer, int index) override;
  void addTrack(boost::shared_ptr<const KelMediaLib::Mixer> mixer,
                boost::shared_ptr<KelMediaLib::Track> track, int index) override;
  int removeTrack(boost::shared_ptr<const KelMediaLib::Mixer> mixer,
                  boost::shared_ptr<const KelMediaLib::Track> track) override;
  void swapTrackOrder(boost::shared_ptr<const KelMediaLib::Mixer> mixer,
                      boost::shared_ptr<const KelMediaLib::Track> first,
                      boost::shared_ptr<const KelMediaLib::Track> second) override;
  /// Gives the media a clone handler if it has none (so that its clones get
  /// copies of its actions), adds it, and brings its actions back from the
  /// graveyard into the bins they came from.
  void addMedia(boost::shared_ptr<const KelMediaLib::Track> track,
                boost::shared_ptr<const KelMediaLib::Media> media, long long time) override;
  /// Removes the media, and the linked media with it; the actions of the
  /// media and of every linked media move to the graveyard.
  KelMediaLib::MediaPlacements removeMedia(
      boost::shared_ptr<const KelMediaLib::Track> track,
      boost::shared_ptr<const KelMediaLib::Media> media) override;
  /// Removes this one media; its actions move to the graveyard, those of
  /// linked media stay.
  void removeMedia(boost::shared_ptr<const KelMediaLib::Track> track,
                   boost::shared_ptr<const KelMediaLib::Media> media, long long time) override;
  void move(boost::shared_ptr<const KelMediaLib::Track> track,
            boost::shared_ptr<const KelMediaLib::Media> media, long long delta) override;
  void trimStart(boost::shared_ptr<const KelMediaLib::Track> track,
                 boost::shared_ptr<const KelMediaLib::Media> media, long long delta) override;
  void trimEnd(boost::shared_ptr<const KelMediaLib::Track> track,
               boost::shared_ptr<const KelMediaLib::Media> media, long long delta) override;
  double stretch(boost::shared_ptr<const KelMediaLib::Track> track,
                 boost::shared_ptr<const KelMediaLib::Media> media, double scalar) override;
  void addLink(boost::shared_ptr<const KelMediaLib::Media> first,
               boost::shared_ptr<const KelMediaLib::Media> second) override;
  void addLink(boost::shared_ptr<const KelMediaLib::Media> first,
               boost::shared_ptr<const KelMediaLib::Media> second, int firstIndex,
               int secondIndex) override;
  void removeLink(boost::shared_ptr<const KelMediaLib::Media> first,
                  boost::shared_ptr<const KelMediaLib::Media> second) override;
  void addEffect(boost::shared_ptr<const KelMediaLib::Effectable> effectable,
                 boost::shared_ptr<const KelMediaLib::Effect> effect) override;
  void insertEffect(boost::shared_ptr<const KelMediaLib::Effectable> effectable,
                    boost::shared_ptr<const KelMediaLib::Effect> effect, int index) override;
  void swapEffectOrder(boost::shared_ptr<const KelMediaLib::Effectable> effectable, int first,
                       int second) override;
  int removeEffect(boost::shared_ptr<const KelMediaLib::Effectable> effectable,
                   boost::shared_ptr<const KelMediaLib::Effect> effect) override;
  boost::shared_ptr<const KelMediaLib::Source> loadSource(const std::string& fileName) override;
  void loadSource(boost::shared_ptr<const KelMediaLib::Source> source) override;
  void unloadSource(boost::shared_ptr<const KelMediaLib::Source> source) override;
  void addClipping(boost::shared_ptr<KelMediaLib::Clipping> clipping) override;
  void removeClipping(boost::shared_ptr<KelMediaLib::Clipping> clipping) override;
  /// Refuses, with "attempting to move a keyframe past another", a move that
  /// would pass a neighbouring key frame; landing on its time passes.
  void moveParameterKeyFrame(boost::shared_ptr<const KelMediaLib::Parametric> parametric,
                             boost::shared_ptr<const KelMediaLib::ParameterInterface> parameter,
                             long long oldTime, long long newTime) override;
  KelMediaLib::EdgeModCommandHandler* edgeModCommandHandler() override;

 private:
  explicit InternalOrvProject(boost::shared_ptr<KelMediaLib::InternalProject> project);

  /// This project's bin at that address; null for any other.
  boost::shared_ptr<ActionBin> ownBin(const boost::shared_ptr<const ActionBin>& bin) const;
  /// The three action bins.
  std::array<const ActionBin*, 3> bins() const;
  /// Moves the media's actions in `bin`, if it has any, to the graveyard.
  void removeMediasActions(const boost::shared_ptr<ActionBin>& bin,
                           const boost::shared_ptr<const KelMediaLib::Media>& media);

  // The destructor depends on this order.
  boost::shared_ptr<KelMediaLib::InternalProject> project_;
  boost::shared_ptr<ActionBin> actionBin_;
  boost::shared_ptr<ActionBin> zdActionBin_;
  boost::shared_ptr<EdgeTransitionBin> videoEdgeTransitionBin_;
  boost::shared_ptr<EdgeTransitionBin> audioEdgeTransitionBin_;
  boost::shared_ptr<ActionGraveyard> graveyard_;
  boost::shared_ptr<ActionBin> audioActionBin_;
};

}  // namespace OrvMediaLib
