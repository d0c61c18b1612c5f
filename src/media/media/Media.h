#pragma once

#include "core/CloneDecorator.h"
#include "core/Cloneable.h"
#include "core/KelObject.h"
#include "core/SubProject.h"
#include "core/Subject.h"
#include "core/XMLable.h"
#include "media/edges/EdgeModifiable.h"
#include "media/effects/Effectable.h"
#include "values/Parametric.h"
#include "values/Range.h"

#include <boost/enable_shared_from_this.hpp>
#include <boost/shared_ptr.hpp>
#include <boost/weak_ptr.hpp>

#include <string>
#include <vector>

namespace KelMediaLib {

template <class T>
class Attribute;
class ConstMediaDispatcher;
template <class T>
class Parameter;
class ThreadSafe;
class Track;

/// A piece of the timeline: a stretch of a source (or a generated image or
/// sound) placed on a track.
///
/// Time axes:
/// - `range()`: the place on the track in timeline edit units, (start,
///   duration), end exclusive.
/// - Parameter time, the axis of the key frames: source time in edit units.
///   `mediaTimeRange()` is the stretch of the source shown, (mediaStart,
///   mediaDuration), on this axis; key frames stay with the content when the
///   media moves or is trimmed.
/// - The media's own time (its `Parametric` time): parameter time times the
///   scalar. `toParameterTime(t) = t / scalar`, `fromParameterTime(p) = p *
///   scalar`, `toLocalTime(timeline) = (timeline - start) + mediaStart *
///   scalar`, truncated toward zero.
///
/// Lengths: the source stretch is what a media stores; its length on the
/// track always follows from it, duration = llround(mediaDuration * scalar).
/// A trim by `delta` timeline units moves the source stretch by
/// llround(delta / scalar) source units, and since llround(-x) is
/// -llround(x), a trim by `-delta` moves it back exactly: every trim and
/// every change of scalar undone by its opposite gives back start, duration,
/// mediaStart, mediaDuration, scalar and trimStartSum bit for bit. The price
/// is that at a scalar other than 1 a trim may move the other end of the
/// media by a unit, where the rounding of the duration falls otherwise.
///
/// Invariants: duration and mediaDuration are never negative; file media
/// keep within their source (see the kinds). Every change of the range, the
/// edges or the effects notifies the observers once. The edits here are the
/// project's (under its write lock) or a reader's on a media that is on no
/// track; each throws `KelMediaLibException` on a bad value and then leaves
/// the media unchanged.
class Media : public KelObject,
              public Subject,
              public Cloneable,
              public XMLable,
              public Parametric,
              public SubProject,
              public Effectable,
              public EdgeModifiable,
              public boost::enable_shared_from_this<Media> {
 public:
  ~Media() override;

  /// The place on the track, timeline units.
  Range<long long> range() const { return range_; }
  /// The stretch of the source shown, (mediaStart, mediaDuration), parameter time.
  Range<long long> mediaTimeRange() const { return Range<long long>(mediaStart_, mediaDuration_); }
  /// Length on the track over length of the source stretch.
  double scalar() const { return scalar_; }
  /// The sum of every start trim since the media was made, timeline units.
  long long trimStartSum() const { return trimStartSum_; }

  /// The track it is on; null when on none (or the track has gone).
  boost::shared_ptr<const Track> parent() const { return parent_.lock(); }
  /// The media linked to this one, in order of linking (some may have gone).
  std::vector<boost::weak_ptr<const Media>> links() const { return links_; }
  bool isLinkedTo(const Media* other) const;
  /// The place of `other` in `links()`; -1 if it isn't linked (or is null).
  int indexOfLink(const Media* other) const;

  /// The media's free-form name ("ident" in a file); empty by default.
  boost::shared_ptr<const Attribute<std::string>> ident() const { return ident_; }

  double toParameterTime(double time) const override;
  double fromParameterTime(double time) const override;
  long long toLocalTime(long long timelineTime) const override;
  /// A recording's time (seconds counted in source edit units) as the media's
  /// own time: `recordingTime * scalar`.
  virtual double recordingToEditTime(double recordingTime) const;

  /// The hook run by `cloneMedia`; null if none. Owned by the media. The slot
  /// is not model state, so these are const.
  CloneDecorator<Media>* cloneDecorator() const { return decorator_; }
  /// True from the moment a decorator is put in until it is deleted.
  bool hasCloneDecorator() const { return hasDecorator_; }
  /// Takes ownership; deletes the decorator there was (unless it is the same).
  void setCloneDecorator(CloneDecorator<Media>* decorator) const;
  /// Deletes the decorator and clears the slot and its flag.
  void deleteCloneDecorator() const;

  /// A bare deep copy, owned by the caller: the same range, scalar, trims,
  /// attributes, parameters (copies of the key frames at the same times),
  /// copies of the effects and of the edge modifications (aimed at the
  /// copy's own parameters); a fresh ident; no track, no links, no decorator.
  /// The decorator isn't run.
  Media* clone() const override;
  /// `clone()`, then this media's decorator, if any, with (this, clone).
  boost::shared_ptr<Media> cloneMedia() const;

  virtual void dispatch(ConstMediaDispatcher& dispatcher) const = 0;
  /// Image-like media, the only kind an image track takes.
  virtual bool isStill() const;
  virtual bool isAudio() const;

  /// Multiplies the scalar by `factor` (> 0); the duration becomes
  /// `llround(mediaDuration * scalar)`. Start and source stretch stay.
  virtual void scale(double factor);
  /// Sets the scalar (> 0); the duration is recomputed as by `scale`.
  virtual void setScalar(double scalar);
  /// Moves the start by `delta` timeline units: start += delta and
  /// trimStartSum += delta exactly; mediaStart += llround(delta / scalar),
  /// mediaDuration -= the same, and the duration follows the source stretch
  /// (so the end stays, give or take the rounding; see the class). A
  /// negative delta extends the media.
  ///
  ///     before:   [start ......... end)     source [ms ....... )
  ///     delta 3:     [start+3 .... end)     source    [ms+3/s .. )
  virtual void trimStart(long long delta);
  /// Moves the end back by about `delta` timeline units: mediaDuration -=
  /// llround(delta / scalar), and the duration follows the source stretch.
  virtual void trimEnd(long long delta);
  /// Puts the media at `start` on its track (timeline units).
  void setStart(long long start);
  /// Records the track it is on; an empty pointer takes it off.
  void setParent(boost::weak_ptr<const Track> track);
  /// Links to `other` on this side only (the project links both), at the end
  /// of the links. Throws on a null media, this media, or one linked already.
  void addLink(const boost::shared_ptr<const Media>& other);
  /// Links as `addLink` does, at `index` of the links (-1: at the end), which
  /// is how an undone unlink puts a link back in its place; also throws on an
  /// index outside -1 ... number of links.
  void insertLink(const boost::shared_ptr<const Media>& other, int index);
  /// Unlinks `other` on this side and returns the index it had; throws if
  /// `other` isn't linked.
  int removeLink(const Media* other);

 protected:
  /// A media showing (mediaStart, mediaDuration) of its source, at 0 on no
  /// track, scalar 1. Throws on a negative duration.
  Media(boost::weak_ptr<const ThreadSafe> project, long long mediaStart, long long mediaDuration);
  /// Copies the times, the edge lengths and the ident's value; a fresh
  /// XML ident; no parameters, effects, modifications, links, track or
  /// decorator (see `clone`).
  Media(const Media& other);

  /// A copy of the most derived kind made with its copy constructor; `clone`
  /// fills in the rest.
  virtual Media* copyKind() const = 0;
  /// Throws `KelMediaLibException` unless the media may show that stretch
  /// of its source. The default only refuses a negative duration.
  virtual void checkMediaTimeRange(long long mediaStart, long long mediaDuration) const;

  const Parametric* effectsOwner() const override { return this; }
  void effectsChanged() override;
  void edgesChanged() override;

  /// Parts of the XML forms shared by the kinds.
  /// `id start duration`.
  void writeTimeAttributes(Options& options) const;
  /// ` scalar mediaStart mediaDuration`, with `mediaStart` as given.
  void writeStretchAttributes(Options& options, long long mediaStart) const;
  /// The trim sum that a reader replays on a new still of this duration: an
  /// end trim by its negation, then a start trim by it. A sum below minus the
  /// duration would make the first trim refuse, and is written as that bound.
  long long replayableTrimStartSum() const;
  /// `<LinkedMedia>` with the linked media that a file holds.
  void writeLinks(Options& options, int depth) const;
  /// `<Effects>` with the generic effects, the only kind a file holds.
  void writeEffects(Options& options, int depth) const;
  /// `<LeftEdgeMods>` and `<RightEdgeMods>` with the modifications whose
  /// parameter a reader knows when it reads them (see `xmlKnowsParameter`).
  void writeEdges(Options& options, int depth) const;
  /// Whether a reader of this media's element has met `parameter` by the
  /// time it reads the edges: a parameter of this media that its element
  /// declares, or one of its track or of that track's mixer, which stand
  /// ahead of the media. Null is known to nobody.
  bool xmlKnowsParameter(const Parameter<double>* parameter) const;
  /// Whether the element declares this media's parameters of double type to
  /// a reader, in its parameters and transformer. True for all but the
  /// kinds whose parameters a reader passes over.
  virtual bool xmlDeclaresParameters() const;
  /// `<Parameters>` with each of `parameters`, skipped when it is empty.
  static void writeParameters(Options& options, int depth,
                              const std::vector<const XMLable*>& parameters);
  /// `<Attributes>` with each of `attributes`, skipped when it is empty.
  static void writeAttributes(Options& options, int depth,
                              const std::vector<const XMLable*>& attributes);
  /// A description of the media for messages: its kind and XML ident.
  std::string label() const;

 private:
  void finishClone(Media& copy) const;
  void changeScalar(double scalar, const char* what);
  /// Checks the new times (nothing changes on a failure), sets them with the
  /// duration that follows from the source stretch, and notifies.
  void retime(long long start, long long mediaStart, long long mediaDuration,
              long long trimStartSum, const std::string& context);

  Range<long long> range_;
  long long mediaStart_;
  long long mediaDuration_;
  double scalar_;
  long long trimStartSum_;
  boost::weak_ptr<const Track> parent_;
  std::vector<boost::weak_ptr<const Media>> links_;
  boost::shared_ptr<Attribute<std::string>> ident_;
  mutable CloneDecorator<Media>* decorator_;
  mutable bool hasDecorator_;
};

}  // namespace KelMediaLib
