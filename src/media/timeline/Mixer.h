#pragma once

#include "core/KelObject.h"
#include "core/SubProject.h"
#include "core/Subject.h"
#include "core/XMLable.h"

#include <boost/enable_shared_from_this.hpp>
#include <boost/shared_ptr.hpp>
#include <boost/weak_ptr.hpp>

#include <vector>

namespace KelMediaLib {

class ThreadSafe;
class Track;

/// An ordered stack of tracks of one kind; owns them. Edits are the
/// project's and take no lock; each notifies the observers once.
class Mixer : public KelObject,
              public Subject,
              public XMLable,
              public SubProject,
              public boost::enable_shared_from_this<Mixer> {
 public:
  typedef std::vector<boost::shared_ptr<Track>>::const_iterator TrackIterator;

  ~Mixer() override;

  /// Walk the tracks in order; invalid after the mixer changes.
  TrackIterator trackBegin() const { return tracks_.begin(); }
  TrackIterator trackEnd() const { return tracks_.end(); }
  /// A new list of the tracks in order.
  std::vector<boost::shared_ptr<const Track>> tracks() const;
  int numTracks() const { return static_cast<int>(tracks_.size()); }
  /// The index of that very track; -1 if it isn't here.
  int indexOfTrack(const Track* track) const;
  /// The track at `index`; throws `KelMediaLibException` out of range.
  boost::shared_ptr<const Track> trackAt(int index) const;

  /// Whether tracks of that kind belong in this mixer.
  virtual bool acceptsTrack(const Track& track) const = 0;
  /// A new track of this mixer's kind, in no mixer.
  virtual boost::shared_ptr<Track> makeTrack(boost::weak_ptr<const ThreadSafe> project) const = 0;

  /// Inserts before `index`; -1 or `numTracks()` appends. Makes this mixer
  /// the track's parent. Throws `KelMediaLibException` on a null track, one
  /// of another kind, one in a mixer already, or an index out of range.
  void insertTrack(boost::shared_ptr<Track> track, int index);
  /// Takes out the track at `index` and clears its parent; throws out of range.
  boost::shared_ptr<Track> removeTrack(int index);
  /// Exchanges two tracks; throws if either index is out of range.
  void swapTracks(int first, int second);

 protected:
  explicit Mixer(boost::weak_ptr<const ThreadSafe> project);

  /// `<Tracks>` with each track.
  void writeTracks(Options& options, int depth) const;

 private:
  void checkIndex(int index, const char* what) const;

  std::vector<boost::shared_ptr<Track>> tracks_;
};

}  // namespace KelMediaLib
