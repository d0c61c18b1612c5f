#pragma once

#include <boost/shared_ptr.hpp>

#include <string>
#include <vector>

namespace KelMediaLib {

class AudioMixer;
class AudioTrack;
class Clipping;
class EdgeModCommandHandler;
class Effect;
class Effectable;
class Media;
class Mixer;
class ParameterInterface;
class Parametric;
class Source;
class Track;
class VisualMixer;
class VisualTrack;

/// Where a media stood on the timeline: what a removal takes away and what
/// its undo puts back. `time` is the media's start on the track.
struct MediaPlacement {
  boost::shared_ptr<const Track> track;
  boost::shared_ptr<const Media> media;
  long long time;
};
typedef std::vector<MediaPlacement> MediaPlacements;

/// Every edit of the timeline, as the commands of the model call it. The
/// project implements it and does the real work; a facade around a project
/// implements it too and forwards, so that it sees every edit.
///
/// Times are timeline times in edit units. Objects are given as pointers to
/// const: the handler owns the model and is the one that changes it. Misuse
/// (a media on no track, a track of another project, a trim beyond the media)
/// throws `KelMediaLibException` and changes nothing.
class CommandHandler {
 public:
  virtual ~CommandHandler();

  // Mixers. Installing a mixer replaces the one there was.
  virtual boost::shared_ptr<const VisualMixer> visualMixer() const = 0;
  virtual boost::shared_ptr<const AudioMixer> audioMixer() const = 0;
  /// Makes and installs a new visual mixer of that size; returns it.
  virtual boost::shared_ptr<const VisualMixer> newVisualMixer(float width, float height) = 0;
  /// Installs this very mixer (how an undo puts a mixer back).
  virtual void newVisualMixer(boost::shared_ptr<VisualMixer> mixer) = 0;
  /// Takes the visual mixer away and returns it; null if there was none.
  virtual boost::shared_ptr<VisualMixer> removeVisualMixer() = 0;
  virtual boost::shared_ptr<const AudioMixer> newAudioMixer(unsigned int sampleRate,
                                                            unsigned int bitDepth,
                                                            unsigned int numChannels) = 0;
  virtual void newAudioMixer(boost::shared_ptr<AudioMixer> mixer) = 0;
  virtual boost::shared_ptr<AudioMixer> removeAudioMixer() = 0;

  // Tracks. An index of -1 (or past the end) puts the track behind the others.
  virtual boost::shared_ptr<const VisualTrack> newVisualTrack(int index) = 0;
  /// A visual track that takes still media only (images, text, callouts).
  virtual boost::shared_ptr<const VisualTrack> newImageTrack(int index) = 0;
  virtual boost::shared_ptr<const AudioTrack> newAudioTrack(int index) = 0;
  /// A new track of the kind that the mixer holds.
  virtual boost::shared_ptr<const Track> newTrack(boost::shared_ptr<const Mixer> mixer,
                                                  int index) = 0;
  virtual void addTrack(boost::shared_ptr<const Mixer> mixer, boost::shared_ptr<Track> track,
                        int index) = 0;
  /// Takes the track out of the mixer; returns the index it had.
  virtual int removeTrack(boost::shared_ptr<const Mixer> mixer,
                          boost::shared_ptr<const Track> track) = 0;
  virtual void swapTrackOrder(boost::shared_ptr<const Mixer> mixer,
                              boost::shared_ptr<const Track> first,
                              boost::shared_ptr<const Track> second) = 0;

  // Media.
  /// Puts a media that is on no track on the track, starting at `time`.
  virtual void addMedia(boost::shared_ptr<const Track> track, boost::shared_ptr<const Media> media,
                        long long time) = 0;
  /// Takes the media off the track, and with it every media linked to it.
  /// Returns where each stood, the media itself first.
  virtual MediaPlacements removeMedia(boost::shared_ptr<const Track> track,
                                      boost::shared_ptr<const Media> media) = 0;
  /// Takes this one media off the track; `time` must be its start.
  virtual void removeMedia(boost::shared_ptr<const Track> track,
                           boost::shared_ptr<const Media> media, long long time) = 0;
  /// Moves the media along its track by `delta`.
  virtual void move(boost::shared_ptr<const Track> track, boost::shared_ptr<const Media> media,
                    long long delta) = 0;
  /// Trims `delta` off the media's start (negative: extends it).
  virtual void trimStart(boost::shared_ptr<const Track> track,
                         boost::shared_ptr<const Media> media, long long delta) = 0;
  /// Trims `delta` off the media's end (negative: extends it).
  virtual void trimEnd(boost::shared_ptr<const Track> track, boost::shared_ptr<const Media> media,
                       long long delta) = 0;
  /// Sets the media's speed scalar (length on the track over length of the
  /// source stretch it shows) and returns the scalar it had, so that an undo
  /// restores it exactly.
  virtual double stretch(boost::shared_ptr<const Track> track,
                         boost::shared_ptr<const Media> media, double scalar) = 0;
  /// Links the two both ways, each at the end of the other's links.
  virtual void addLink(boost::shared_ptr<const Media> first,
                       boost::shared_ptr<const Media> second) = 0;
  /// Links the two both ways, `second` at `firstIndex` of the links of
  /// `first` and `first` at `secondIndex` of those of `second` (-1: at the
  /// end): how an undone unlink puts the link back in its place.
  virtual void addLink(boost::shared_ptr<const Media> first,
                       boost::shared_ptr<const Media> second, int firstIndex,
                       int secondIndex) = 0;
  virtual void removeLink(boost::shared_ptr<const Media> first,
                          boost::shared_ptr<const Media> second) = 0;

  // Effects.
  virtual void addEffect(boost::shared_ptr<const Effectable> effectable,
                         boost::shared_ptr<const Effect> effect) = 0;
  virtual void insertEffect(boost::shared_ptr<const Effectable> effectable,
                            boost::shared_ptr<const Effect> effect, int index) = 0;
  virtual void swapEffectOrder(boost::shared_ptr<const Effectable> effectable, int first,
                               int second) = 0;
  /// Takes the effect away; returns the index it had.
  virtual int removeEffect(boost::shared_ptr<const Effectable> effectable,
                           boost::shared_ptr<const Effect> effect) = 0;

  /// Moves the key frame of `parameter` at `oldTime` to `newTime`, both on the
  /// parameter's own axis.
  virtual void moveParameterKeyFrame(boost::shared_ptr<const Parametric> parametric,
                                     boost::shared_ptr<const ParameterInterface> parameter,
                                     long long oldTime, long long newTime) = 0;

  // Sources.
  /// Loads the file into the source bin; returns the new source.
  virtual boost::shared_ptr<const Source> loadSource(const std::string& fileName) = 0;
  /// Puts this very source (back) into the source bin.
  virtual void loadSource(boost::shared_ptr<const Source> source) = 0;
  virtual void unloadSource(boost::shared_ptr<const Source> source) = 0;
  virtual void addClipping(boost::shared_ptr<Clipping> clipping) = 0;
  virtual void removeClipping(boost::shared_ptr<Clipping> clipping) = 0;

  /// The handler of the edge commands (transitions at media edges).
  virtual EdgeModCommandHandler* edgeModCommandHandler() = 0;
};

}  // namespace KelMediaLib
