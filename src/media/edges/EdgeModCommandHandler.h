#pragma once

#include <boost/shared_ptr.hpp>

namespace KelMediaLib {

class EdgeModifiable;
class EdgeModification;

/// The two edges of a media: its start (left) and its end (right) on the track.
enum class EdgeSide { Left, Right };

/// The edits of the edge commands (transitions at the edges of a media). The
/// project implements it; a command reaches it through
/// `CommandHandler::edgeModCommandHandler`. Misuse (an index out of range, a
/// length that would become negative) throws `KelMediaLibException` and
/// changes nothing.
class EdgeModCommandHandler {
 public:
  virtual ~EdgeModCommandHandler() = default;

  /// Puts the modification into the side's list at `index`; -1 or the
  /// list's size appends it.
  virtual void insertEdgeModification(boost::shared_ptr<const EdgeModifiable> edgeModifiable,
                                      EdgeSide side,
                                      boost::shared_ptr<const EdgeModification> modification,
                                      int index) = 0;
  /// Takes the modification at `index` out of the side's list and returns it.
  virtual boost::shared_ptr<const EdgeModification> removeEdgeModification(
      boost::shared_ptr<const EdgeModifiable> edgeModifiable, EdgeSide side, int index) = 0;
  /// Changes the length of the side's transition, in timeline units, by `delta`.
  virtual void changeEdgeLength(boost::shared_ptr<const EdgeModifiable> edgeModifiable,
                                EdgeSide side, long long delta) = 0;
};

}  // namespace KelMediaLib
