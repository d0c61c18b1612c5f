#pragma once

#include "core/KelObject.h"
#include "core/Subject.h"

#include <boost/shared_ptr.hpp>
#include <boost/smart_ptr/owner_less.hpp>

#include <map>
#include <memory>

namespace KelMediaLib {
class Media;
}  // namespace KelMediaLib

namespace OrvMediaLib {

class LeftEdgeTransition;
class RightEdgeTransition;

/// The transitions at the edges of the media that a caller wants to see:
/// for each media given to it, one object for the left edge and one for the
/// right edge, each present while its edge has modifications.
///
/// The bin watches each media it knows and follows its edges: a side gets a
/// transition when its first modification arrives, keeps the same object
/// while modifications come and go, and loses it with the last one. Its own
/// observers are told once after each change of a side. The bin holds its
/// media strongly; it stops watching them when it dies. No locks: the media
/// change under the project's write lock, on the thread that tells the bin.
class EdgeTransitionBin : public KelMediaLib::KelObject, public KelMediaLib::Subject {
 public:
  static boost::shared_ptr<EdgeTransitionBin> create();
  EdgeTransitionBin(const EdgeTransitionBin&) = delete;
  EdgeTransitionBin& operator=(const EdgeTransitionBin&) = delete;
  ~EdgeTransitionBin() override;

  /// The media's left transition; null when the bin doesn't know the media
  /// or its left edge has none.
  boost::shared_ptr<const LeftEdgeTransition> leftEdgeTransitionForMedia(
      boost::shared_ptr<const KelMediaLib::Media> media) const;
  boost::shared_ptr<const RightEdgeTransition> rightEdgeTransitionForMedia(
      boost::shared_ptr<const KelMediaLib::Media> media) const;

  /// Starts to watch the media, with fresh transitions for the edges that
  /// have modifications (a media it knew already starts afresh). Throws
  /// `OrvException` on a null media.
  void createEdgeTransitionsForMedia(boost::shared_ptr<const KelMediaLib::Media> media);
  /// Brings the media's transitions in step with its edges, keeping those
  /// that still stand; a media it doesn't know yet is created.
  void updateEdgeTransitionsForMedia(boost::shared_ptr<const KelMediaLib::Media> media);

  /// Puts `transition` (null clears the side) on the media's left side,
  /// watching the media if it didn't yet. Throws `OrvException` on a null
  /// media or a transition of another media.
  void addLeftEdgeTransition(boost::shared_ptr<const KelMediaLib::Media> media,
                             boost::shared_ptr<const LeftEdgeTransition> transition);
  void addRightEdgeTransition(boost::shared_ptr<const KelMediaLib::Media> media,
                              boost::shared_ptr<const RightEdgeTransition> transition);

 private:
  class EdgeTransitionPair;
  typedef std::map<boost::shared_ptr<const KelMediaLib::Media>, std::unique_ptr<EdgeTransitionPair>,
                   boost::owner_less<boost::shared_ptr<const KelMediaLib::Media>>>
      Pairs;

  EdgeTransitionBin();

  EdgeTransitionPair* pairOf(const boost::shared_ptr<const KelMediaLib::Media>& media) const;
  /// The media's pair, made (and watching) if there was none.
  EdgeTransitionPair& ensurePair(const boost::shared_ptr<const KelMediaLib::Media>& media,
                                 const char* operation);

  Pairs pairs_;
};

}  // namespace OrvMediaLib
