#pragma once

#include "core/CommandHandler.h"
#include "media/edges/EdgeModCommandHandler.h"
#include "media/project/CommandHistory.h"
#include "media/project/Project.h"

#include <boost/shared_ptr.hpp>
#include <boost/weak_ptr.hpp>

#include <string>
#include <vector>

namespace KelMediaLib {

class SubProject;

/// The project of the media model. Commands run with the installed
/// `CommandHandler` (the project itself until another one, such as a facade
/// around it, is installed); the project's own handler operations do the
/// real edits. Those operations take no lock: `execute`, `undo` and `redo`
/// hold the write lock around them. Each one checks its arguments first and
/// throws `KelMediaLibException` with a text naming the operation and the
/// object at fault, leaving the model as it was: a media added twice, one
/// taken from a track it isn't on, a track or mixer that isn't in this
/// project's timeline, a trim beyond the media.
class InternalProject : public Project, public CommandHandler, public EdgeModCommandHandler {
 public:
  static boost::shared_ptr<InternalProject> create(EditRate editRate);

  ~InternalProject() override;

  /// Installs the handler that commands run with; null reinstalls the
  /// project itself. The handler isn't owned.
  void setCommandHandler(CommandHandler* handler);
  CommandHandler* commandHandler();

  EditRate editRate() const override { return editRate_; }

  bool execute(boost::shared_ptr<Command> command) override;
  void undo() override;
  void redo() override;
  void combineLastCommands() override;
  void combineNextCommand() override;
  /// Forgets the history, as after a load: nothing to undo or redo, and
  /// `commandState()` from now on names the state as loaded.
  void clearHistory();
  CommandHistoryState commandState() const override;
  void restoreCommandState(const CommandHistoryState& state) override;
  void attachCommandObserver(CommandObserver* observer) override;
  void detachCommandObserver(CommandObserver* observer) override;

  boost::shared_ptr<const Timeline> timeline() const override;
  boost::shared_ptr<const SourceBin> sourceBin() const override;
  const CommandHistory& commandHistory() const override { return history_; }
  boost::shared_ptr<ClipBoard> clipBoard() override { return clipBoard_; }
  void changeSourcesFile(boost::shared_ptr<const Source> source, const std::string& path) override;
  void addSourceBinSentry(boost::shared_ptr<SourceBinSentry> sentry) override;

  /// Whether `part` is of this project: it locks this project's lock (the
  /// parts made through a facade around the project lock the same one). A
  /// part of another project, of one that has gone or of none is not.
  bool isPartOfProject(const SubProject& part) const;

  void xmlName(Options& options) const override;
  void xmlAttributes(Options& options) const override;
  void xmlBody(Options& options, int depth) const override;

  // CommandHandler: see there for what each does.
  boost::shared_ptr<const VisualMixer> visualMixer() const override;
  boost::shared_ptr<const AudioMixer> audioMixer() const override;
  boost::shared_ptr<const VisualMixer> newVisualMixer(float width, float height) override;
  void newVisualMixer(boost::shared_ptr<VisualMixer> mixer) override;
  boost::shared_ptr<VisualMixer> removeVisualMixer() override;
  boost::shared_ptr<const AudioMixer> newAudioMixer(unsigned int sampleRate, unsigned int bitDepth,
                                                    unsigned int numChannels) override;
  void newAudioMixer(boost::shared_ptr<AudioMixer> mixer) override;
  boost::shared_ptr<AudioMixer> removeAudioMixer() override;

  boost::shared_ptr<const VisualTrack> newVisualTrack(int index) override;
  boost::shared_ptr<const VisualTrack> newImageTrack(int index) override;
  boost::shared_ptr<const AudioTrack> newAudioTrack(int index) override;
  boost::shared_ptr<const Track> newTrack(boost::shared_ptr<const Mixer> mixer, int index) override;
  void addTrack(boost::shared_ptr<const Mixer> mixer, boost::shared_ptr<Track> track,
                int index) override;
  /// Refuses a track that still holds media: take them off first, so that
  /// whoever watches media leaving the timeline sees them go.
  int removeTrack(boost::shared_ptr<const Mixer> mixer,
                  boost::shared_ptr<const Track> track) override;
  void swapTrackOrder(boost::shared_ptr<const Mixer> mixer, boost::shared_ptr<const Track> first,
                      boost::shared_ptr<const Track> second) override;

  /// Also refuses a negative time and a track that doesn't take the kind.
  void addMedia(boost::shared_ptr<const Track> track, boost::shared_ptr<const Media> media,
                long long time) override;
  /// The linked media that are on a track go with the media (links to media
  /// on no track are skipped); the links themselves stay.
  MediaPlacements removeMedia(boost::shared_ptr<const Track> track,
                              boost::shared_ptr<const Media> media) override;
  void removeMedia(boost::shared_ptr<const Track> track, boost::shared_ptr<const Media> media,
                   long long time) override;
  /// Refuses a move to before time 0.
  void move(boost::shared_ptr<const Track> track, boost::shared_ptr<const Media> media,
            long long delta) override;
  /// Refuses a trim that would leave less than nothing or start before 0;
  /// the media refuses one that leaves its source.
  void trimStart(boost::shared_ptr<const Track> track, boost::shared_ptr<const Media> media,
                 long long delta) override;
  void trimEnd(boost::shared_ptr<const Track> track, boost::shared_ptr<const Media> media,
               long long delta) override;
  double stretch(boost::shared_ptr<const Track> track, boost::shared_ptr<const Media> media,
                 double scalar) override;
  /// Links both ways; refuses a media linked to itself or linked already.
  void addLink(boost::shared_ptr<const Media> first,
               boost::shared_ptr<const Media> second) override;
  /// Also refuses an index outside -1 ... number of links.
  void addLink(boost::shared_ptr<const Media> first, boost::shared_ptr<const Media> second,
               int firstIndex, int secondIndex) override;
  void removeLink(boost::shared_ptr<const Media> first,
                  boost::shared_ptr<const Media> second) override;

  void addEffect(boost::shared_ptr<const Effectable> effectable,
                 boost::shared_ptr<const Effect> effect) override;
  void insertEffect(boost::shared_ptr<const Effectable> effectable,
                    boost::shared_ptr<const Effect> effect, int index) override;
  void swapEffectOrder(boost::shared_ptr<const Effectable> effectable, int first,
                       int second) override;
  int removeEffect(boost::shared_ptr<const Effectable> effectable,
                   boost::shared_ptr<const Effect> effect) override;

  /// Refuses a parameter that isn't the parametric's own.
  void moveParameterKeyFrame(boost::shared_ptr<const Parametric> parametric,
                             boost::shared_ptr<const ParameterInterface> parameter,
                             long long oldTime, long long newTime) override;

  /// Makes a source of the file's stats as the registered stats loaders read
  /// them (see `MediaFileStats::create`), with its media in this project;
  /// throws `KelMediaLibException` naming a path that no loader opens.
  boost::shared_ptr<const Source> loadSource(const std::string& fileName) override;
  void loadSource(boost::shared_ptr<const Source> source) override;
  void unloadSource(boost::shared_ptr<const Source> source) override;
  void addClipping(boost::shared_ptr<Clipping> clipping) override;
  void removeClipping(boost::shared_ptr<Clipping> clipping) override;

  EdgeModCommandHandler* edgeModCommandHandler() override { return this; }

  void insertEdgeModification(boost::shared_ptr<const EdgeModifiable> edgeModifiable, EdgeSide side,
                              boost::shared_ptr<const EdgeModification> modification,
                              int index) override;
  boost::shared_ptr<const EdgeModification> removeEdgeModification(
      boost::shared_ptr<const EdgeModifiable> edgeModifiable, EdgeSide side, int index) override;
  /// Refuses a change that would make the length negative.
  void changeEdgeLength(boost::shared_ptr<const EdgeModifiable> edgeModifiable, EdgeSide side,
                        long long delta) override;

 private:
  explicit InternalProject(EditRate editRate);

  typedef void (CommandObserver::*Report)(const boost::shared_ptr<const Command>&);
  void tell(Report report, const boost::shared_ptr<const Command>& command);

  boost::shared_ptr<Mixer> ownMixer(const boost::shared_ptr<const Mixer>& mixer,
                                    const char* operation) const;
  boost::shared_ptr<Track> ownTrack(const boost::shared_ptr<const Track>& track,
                                    const char* operation) const;
  boost::shared_ptr<Media> mediaOnTrack(const boost::shared_ptr<const Track>& track,
                                        const boost::shared_ptr<const Media>& media,
                                        const char* operation) const;
  boost::shared_ptr<Track> insertNewTrack(const boost::shared_ptr<Mixer>& mixer,
                                          boost::shared_ptr<Track> track, int index,
                                          const char* operation);

  EditRate editRate_;
  boost::weak_ptr<const ThreadSafe> self_;
  boost::weak_ptr<const ProjectEditRate> selfRate_;
  boost::shared_ptr<Timeline> timeline_;
  boost::shared_ptr<SourceBin> sourceBin_;
  boost::shared_ptr<ClipBoard> clipBoard_;
  CommandHistory history_;
  CommandHandler* handler_;
  bool combineNext_;
  std::vector<CommandObserver*> observers_;
};

}  // namespace KelMediaLib
