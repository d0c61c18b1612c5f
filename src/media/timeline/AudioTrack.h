#pragma once

#include "media/timeline/Track.h"
#include "values/AudioPosition.h"
#include "values/InterpolatingParam.h"

#include <boost/iterator/transform_iterator.hpp>
#include <boost/shared_ptr.hpp>

namespace KelMediaLib {

class AudioMedia;

/// A track of sound, placed by its "position" parameter (pan and depth,
/// centre front at rest). Takes audio media only.
///
/// Written as `<AudioTrack id>` with attributes, parameters and media.
class AudioTrack : public Track {
 public:
  struct AsAudio {
    typedef boost::shared_ptr<const AudioMedia> result_type;
    result_type operator()(const boost::shared_ptr<Media>& media) const;
  };
  /// Walks the media in start order; invalid after the track changes.
  typedef boost::transform_iterator<AsAudio, MediaList::const_iterator> AudioMediaIterator;

  static boost::shared_ptr<AudioTrack> create(boost::weak_ptr<const ThreadSafe> project);

  boost::shared_ptr<InterpolatingParam<AudioPosition>> positionParam() const { return position_; }

  AudioMediaIterator audioMediaBegin() const;
  AudioMediaIterator audioMediaEnd() const;

  bool accepts(const Media& media) const override;

  void xmlName(Options& options) const override;
  void xmlAttributes(Options& options) const override;
  void xmlBody(Options& options, int depth) const override;

 private:
  explicit AudioTrack(boost::weak_ptr<const ThreadSafe> project);

  boost::shared_ptr<InterpolatingParam<AudioPosition>> position_;
};

}  // namespace KelMediaLib
