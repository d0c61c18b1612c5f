#pragma once

#include "core/KelObject.h"

#include <boost/shared_ptr.hpp>

#include <vector>

namespace KelMediaLib {

class Media;

/// What the user copied: clones of media, on no track, held until the next
/// copy. Cloning runs each media's clone decorator, so whatever follows a
/// media's clones (its actions) follows the copies too. Not part of the
/// history: copying isn't undone.
class ClipBoard : public KelObject {
 public:
  static boost::shared_ptr<ClipBoard> create();

  /// Replaces the content by clones of `medias`, in their order.
  void copy(const std::vector<boost::shared_ptr<const Media>>& medias);
  /// New clones of the content, in order, to put on tracks; the content
  /// stays, so it can be pasted again.
  std::vector<boost::shared_ptr<Media>> paste() const;
  /// The number of media held.
  std::size_t size() const { return medias_.size(); }
  bool empty() const { return medias_.empty(); }
  void clear();

 private:
  ClipBoard();

  std::vector<boost::shared_ptr<const Media>> medias_;
};

}  // namespace KelMediaLib
