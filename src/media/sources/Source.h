#pragma once

#include "core/KelObject.h"
#include "core/ProjectEditRate.h"
#include "core/XMLIdentified.h"
#include "core/XMLable.h"
#include "values/Range.h"

#include <boost/optional.hpp>
#include <boost/pointer_cast.hpp>
#include <boost/shared_ptr.hpp>
#include <boost/weak_ptr.hpp>

#include <iterator>
#include <vector>

namespace KelMediaLib {

class Media;
class MediaFileStats;
class ThreadSafe;

/// A file of the source bin, described by its stats, which it shares, with
/// one media per track of the stats, made with the source: a `VMFile` for a
/// video track, an `IMFile` for a picture, an `AMFile` (all channels) for
/// sound, each showing the track's whole range and named by the track's file.
/// A video track that lists metadata files gives its `VMFile` a
/// `ScreenMetaData` read from those of them that exist.
///
/// Time: the stats give each track's range in the track's own units (frames,
/// samples) at the track's `editRate`; the source hands out, and its media
/// show, ranges in edit units of the project's rate. Both ends of a range are
/// converted by `rescaleEditUnits` (nearest unit, halves away from zero), so
/// a 0.25 s sound of 2000 samples at 8000 Hz lasts 8 units at 30/1. A still
/// whose track has no length lasts `IMFile::defaultDuration`. A source made
/// without a project edit rate converts nothing: its ranges are the stats'.
///
/// Ownership: the handle that `create` returns, and its copies, keep the
/// source's media. The media themselves hold the source by a handle of
/// their own, so that source and media don't keep each other alive: when the
/// last handle from `create` goes, the source lets its media go. A media of
/// the source held elsewhere (or a clone of it) keeps the source object
/// alive, as any file media does, but the source lists it no more. Both kinds
/// of handle point at the same object; compare them with `get()` or `==`.
///
/// Written as `<Source id src lastMod rect>` with one `<SourceTrack range
/// type editRate trackRect sampleRate bitDepth numChannels/>` per track;
/// "lastMod" is the UTC time of last change as "YYYYMMDDThhmmss".
class Source : public KelObject, public XMLable, public virtual XMLIdentified {
 public:
  typedef std::vector<boost::shared_ptr<const Media>>::const_iterator MediaIterator;

  /// Walks the source's media of kind `T` (a const media class: `const
  /// VisualMedia`, `const AudioMedia`, `const VMFile`...), in track order,
  /// skipping the others.
  template <class T>
  class Iterator {
   public:
    typedef std::forward_iterator_tag iterator_category;
    typedef boost::shared_ptr<T> value_type;
    typedef std::ptrdiff_t difference_type;
    typedef const value_type* pointer;
    typedef value_type reference;

    Iterator(MediaIterator at, MediaIterator end) : at_(at), end_(end) { skip(); }

    value_type operator*() const { return boost::dynamic_pointer_cast<T>(*at_); }
    Iterator& operator++() {
      ++at_;
      skip();
      return *this;
    }
    Iterator operator++(int) {
      Iterator before = *this;
      ++*this;
      return before;
    }
    bool operator==(const Iterator& other) const { return at_ == other.at_; }
    bool operator!=(const Iterator& other) const { return at_ != other.at_; }

   private:
    void skip() {
      while (at_ != end_ && !boost::dynamic_pointer_cast<T>(*at_)) {
        ++at_;
      }
    }

    MediaIterator at_;
    MediaIterator end_;
  };

  /// A source of `stats` whose media belong to `project` (their lock) and
  /// whose times are in edit units of `editRate`'s project. Throws
  /// `KelMediaLibException` on null stats; on a track its media can't show,
  /// whose range is negative, or too large for the project's rate, or given
  /// without a rate of its own; on metadata files of an unknown kind or
  /// malformed, and on metadata files without an edit rate to read them with.
  static boost::shared_ptr<Source> create(
      boost::shared_ptr<MediaFileStats> stats,
      boost::weak_ptr<const ThreadSafe> project = boost::weak_ptr<const ThreadSafe>(),
      boost::weak_ptr<const ProjectEditRate> editRate = boost::weak_ptr<const ProjectEditRate>());

  ~Source() override;

  boost::shared_ptr<const MediaFileStats> mediaFileStats() const { return stats_; }
  /// The range of the track of that index in edit units of the project (on
  /// the media's source axis); none when the stats have no such track.
  /// Throws `KelMediaLibException` as `create` does on a range it can't
  /// convert.
  boost::optional<Range<long long>> trackRange(unsigned int trackIndex) const;

  /// The source's media of kind `T`, from the first.
  template <class T>
  Iterator<T> mediaBegin() const {
    return Iterator<T>(media_.begin(), media_.end());
  }
  template <class T>
  Iterator<T> mediaEnd() const {
    return Iterator<T>(media_.end(), media_.end());
  }
  /// All the source's media in track order, one per track.
  const std::vector<boost::shared_ptr<const Media>>& media() const { return media_; }

  void xmlName(Options& options) const override;
  void xmlAttributes(Options& options) const override;
  void xmlBody(Options& options, int depth) const override;

 private:
  class Release;

  Source(boost::shared_ptr<MediaFileStats> stats, boost::optional<EditRate> editRate);

  void makeMedia(const boost::shared_ptr<const Source>& self,
                 const boost::weak_ptr<const ThreadSafe>& project,
                 const boost::weak_ptr<const ProjectEditRate>& editRate);

  boost::shared_ptr<MediaFileStats> stats_;
  /// The project's edit rate; none for a source outside a project.
  boost::optional<EditRate> editRate_;
  std::vector<boost::shared_ptr<const Media>> media_;
};

}  // namespace KelMediaLib
