#pragma once

#include "core/KelObject.h"

#include <boost/shared_ptr.hpp>
#include <boost/weak_ptr.hpp>

#include <vector>

namespace KelMediaLib {

class Media;
class ThreadSafe;

/// What the user copied: clones of media, on no track, held until the next
/// copy. Cloning runs each media's clone decorator, so whatever follows a
/// media's clones (its actions) follows the copies too. Not part of the
/// history: copying isn't undone.
///
/// Copying and pasting read the model (the media, and the bins that their
/// clone decorators read), so they run under the read lock of the project
/// the clip board belongs to; one of a project that has gone needs none.
class ClipBoard : public KelObject {
 public:
  static boost::shared_ptr<ClipBoard> create(boost::weak_ptr<const ThreadSafe> project);

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
  explicit ClipBoard(boost::weak_ptr<const ThreadSafe> project);

  boost::weak_ptr<const ThreadSafe> project_;
  std::vector<boost::shared_ptr<const Media>> medias_;
};

}  // namespace KelMediaLib
