#include "clipbin/SourceMediaIndexer.h"

#include "clipbin/VidpakStatsLoader.h"
#include "media/media/AMFile.h"
#include "media/media/AudioMedia.h"
#include "media/media/ConstMediaDispatcher.h"
#include "media/media/VMFile.h"
#include "media/media/VisualMedia.h"
#include "media/sources/MediaFileStats.h"
#include "media/sources/Source.h"

#include <boost/function.hpp>

#include <string>

namespace OrvMediaLib {

using KelMediaLib::AudioMedia;
using KelMediaLib::Source;
using KelMediaLib::VisualMedia;

namespace {

typedef boost::function<bool(const std::string&)> FilenamePredicate;

bool isVidpak(const Source& source) {
  return source.mediaFileStats()->filename().find(VidpakStatsLoader::vidpakExtension()) !=
         std::string::npos;
}

template <class T>
boost::shared_ptr<T> mediaOnTrackIndexImpl(const Source& source, int index) {
  auto at = source.mediaBegin<T>();
  const auto end = source.mediaEnd<T>();
  for (int step = 0; step < index && at != end; ++step) {
    ++at;
  }
  return at == end ? boost::shared_ptr<T>() : *at;
}

// Keeps the first file media of its kind whose file the predicate accepts.
template <class File>
class FileFinder : public KelMediaLib::ConstMediaDispatcher {
 public:
  explicit FileFinder(const FilenamePredicate& predicate) : predicate_(predicate) {}

  using KelMediaLib::ConstMediaDispatcher::dispatchMedia;
  void dispatchMedia(const boost::shared_ptr<const File>& media) override {
    if (predicate_(media->fileName())) {
      found = media;
    }
  }

  boost::shared_ptr<const File> found;

 private:
  const FilenamePredicate& predicate_;
};

typedef FileFinder<KelMediaLib::AMFile> AMFileFinder;
typedef FileFinder<KelMediaLib::VMFile> VMFileFinder;

template <class T, class Finder>
boost::shared_ptr<const T> mediaFinder(const Source& source, const FilenamePredicate& predicate) {
  Finder finder(predicate);
  for (auto at = source.mediaBegin<const T>(); at != source.mediaEnd<const T>(); ++at) {
    (*at)->dispatch(finder);
    if (finder.found) {
      return finder.found;
    }
  }
  return boost::shared_ptr<const T>();
}

boost::shared_ptr<const AudioMedia> audioMediaFinder(const Source& source,
                                                     const FilenamePredicate& predicate) {
  return mediaFinder<AudioMedia, AMFileFinder>(source, predicate);
}

boost::shared_ptr<const VisualMedia> visualMediaFinder(const Source& source,
                                                       const FilenamePredicate& predicate) {
  return mediaFinder<VisualMedia, VMFileFinder>(source, predicate);
}

boost::shared_ptr<const AudioMedia> systemAudioMedia(const Source& source) {
  return audioMediaFinder(source, &VidpakStatsLoader::validSystemAudioFilename);
}
boost::shared_ptr<const AudioMedia> microphoneAudioMedia(const Source& source) {
  return audioMediaFinder(source, &VidpakStatsLoader::validMicrophoneAudioFilename);
}
boost::shared_ptr<const VisualMedia> screenVideoMedia(const Source& source) {
  return visualMediaFinder(source, &VidpakStatsLoader::validScreenVideoFilename);
}
boost::shared_ptr<const VisualMedia> cameraVideoMedia(const Source& source) {
  return visualMediaFinder(source, &VidpakStatsLoader::validCameraVideoFilename);
}

boost::shared_ptr<const VisualMedia> vidpakVisualMediaOnTrackIndex(const Source& source,
                                                                   int index) {
  switch (index) {
    case 0:
      return screenVideoMedia(source);
    case 1:
      return cameraVideoMedia(source);
    default:
      return boost::shared_ptr<const VisualMedia>();
  }
}

// Without camera and system sound the microphone is the only sound, and
// takes the first index.
boost::shared_ptr<const AudioMedia> vidpakAudioMediaOnTrackIndex(const Source& source, int index) {
  const bool camera = cameraVideoMedia(source) != nullptr;
  const boost::shared_ptr<const AudioMedia> system = systemAudioMedia(source);
  if (!camera && !system) {
    return index == 0 ? microphoneAudioMedia(source) : boost::shared_ptr<const AudioMedia>();
  }
  switch (index) {
    case 0:
      return system;
    case 1:
      return microphoneAudioMedia(source);
    default:
      return boost::shared_ptr<const AudioMedia>();
  }
}

boost::shared_ptr<const VisualMedia> vidpakMediaOnTrackIndex(const Source& source, int index,
                                                             const VisualMedia*) {
  return vidpakVisualMediaOnTrackIndex(source, index);
}
boost::shared_ptr<const AudioMedia> vidpakMediaOnTrackIndex(const Source& source, int index,
                                                            const AudioMedia*) {
  return vidpakAudioMediaOnTrackIndex(source, index);
}

}  // namespace

template <class T>
boost::shared_ptr<T> SourceMediaIndexer::mediaOnTrackIndex(boost::shared_ptr<const Source> source,
                                                           int trackIndex) {
  if (isVidpak(*source)) {
    return vidpakMediaOnTrackIndex(*source, trackIndex, static_cast<T*>(nullptr));
  }
  return mediaOnTrackIndexImpl<T>(*source, trackIndex);
}

template boost::shared_ptr<const VisualMedia>
SourceMediaIndexer::mediaOnTrackIndex<const VisualMedia>(boost::shared_ptr<const Source>, int);
template boost::shared_ptr<const AudioMedia>
SourceMediaIndexer::mediaOnTrackIndex<const AudioMedia>(boost::shared_ptr<const Source>, int);

}  // namespace OrvMediaLib
