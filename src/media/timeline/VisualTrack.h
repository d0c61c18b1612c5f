#pragma once

#include "media/timeline/Track.h"

#include <boost/iterator/transform_iterator.hpp>
#include <boost/shared_ptr.hpp>

namespace KelMediaLib {

class Transformer;
class VisualMedia;

/// A track of pictures, with a transformer of its own
/// ("translation0".."shear2") that places all its media. Takes visual media
/// of every kind.
///
/// Written as `<VisualTrack id>` with attributes, transformer and media.
class VisualTrack : public Track {
 public:
  struct AsVisual {
    typedef boost::shared_ptr<const VisualMedia> result_type;
    result_type operator()(const boost::shared_ptr<Media>& media) const;
  };
  /// Walks the media in start order; invalid after the track changes.
  typedef boost::transform_iterator<AsVisual, MediaList::const_iterator> VisualMediaIterator;

  static boost::shared_ptr<VisualTrack> create(boost::weak_ptr<const ThreadSafe> project);

  boost::shared_ptr<Transformer> transformer() const { return transformer_; }

  VisualMediaIterator visualMediaBegin() const;
  VisualMediaIterator visualMediaEnd() const;

  bool accepts(const Media& media) const override;

  void xmlName(Options& options) const override;
  void xmlAttributes(Options& options) const override;
  void xmlBody(Options& options, int depth) const override;

 protected:
  explicit VisualTrack(boost::weak_ptr<const ThreadSafe> project);

 private:
  boost::shared_ptr<Transformer> transformer_;
};

}  // namespace KelMediaLib
