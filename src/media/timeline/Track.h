#pragma once

#include "core/KelObject.h"
#include "core/SubProject.h"
#include "core/Subject.h"
#include "core/XMLable.h"
#include "values/Parametric.h"

#include <boost/enable_shared_from_this.hpp>
#include <boost/shared_ptr.hpp>
#include <boost/weak_ptr.hpp>

#include <string>
#include <vector>

namespace KelMediaLib {

template <class T>
class Attribute;
class Media;
class Mixer;
class ThreadSafe;

/// A lane of a mixer holding media sorted by start; a media that arrives at
/// a start that others share goes behind them. Overlaps are not refused.
/// Owns its media. Tracks map time by identity. Edits are the project's and
/// take no lock; each notifies the observers once.
///
/// Costs, n media on the track: `containsMedia` is constant (it asks the
/// media's parent); `insertMedia`, `eraseMedia` and `placeAgain` find the
/// place by binary search on start and then shift the pointers between the
/// old and the new place, so that building or clearing a track by commands
/// grows as n log n and not as n squared.
class Track : public KelObject,
              public Subject,
              public XMLable,
              public Parametric,
              public SubProject,
              public boost::enable_shared_from_this<Track> {
 public:
  ~Track() override;

  /// A free-form name ("ident" in a file); empty by default.
  boost::shared_ptr<const Attribute<std::string>> ident() const { return ident_; }
  /// The mixer it is in; empty when in none.
  boost::weak_ptr<const Mixer> parent() const { return parent_; }
  void setParent(boost::weak_ptr<const Mixer> mixer) { parent_ = mixer; }

  /// A new list of the media in start order.
  std::vector<boost::shared_ptr<const Media>> medias() const;
  int numMedias() const { return static_cast<int>(medias_.size()); }
  /// Whether the media is on this track; false for null.
  bool containsMedia(const Media* media) const;
  /// Whether media of that kind may stand on this track.
  virtual bool accepts(const Media& media) const = 0;

  /// Puts the media in its place by start, behind those with the same start,
  /// and makes this track its parent. Throws `KelMediaLibException` on a null
  /// media, one this track doesn't accept, or one that is on a track already.
  void insertMedia(boost::shared_ptr<Media> media);
  /// Takes the media off and clears its parent; throws if it isn't here.
  void eraseMedia(const Media* media);
  /// Moves a media of this track whose start has just changed from
  /// `previousStart` to its place by the new start, behind those that start
  /// there too; the others keep their order. Nothing moves when the start is
  /// the same. Throws if the media isn't here at `previousStart`.
  void placeAgain(const Media* media, long long previousStart);

 protected:
  explicit Track(boost::weak_ptr<const ThreadSafe> project);

  /// `<Attributes>` with the ident.
  void writeAttributes(Options& options, int depth) const;
  /// `<Medias>` with each media that a file holds, in start order; an audio
  /// transition has no element and is left out.
  void writeMedias(Options& options, int depth) const;

  typedef std::vector<boost::shared_ptr<Media>> MediaList;
  const MediaList& mediaList() const { return medias_; }

 private:
  /// The media's place, searched among those listed at `start`; end if none.
  MediaList::iterator find(const Media* media, long long start);

  boost::shared_ptr<Attribute<std::string>> ident_;
  boost::weak_ptr<const Mixer> parent_;
  MediaList medias_;
};

}  // namespace KelMediaLib
