#pragma once

#include <boost/shared_ptr.hpp>

namespace KelMediaLib {
class Source;
}

namespace OrvMediaLib {

/// Which media of a source a track index means. For an ordinary source the
/// index counts the source's media of that kind. A recording bundle keeps
/// its streams in files whose roles fix the order:
///
/// | kind   | index 0                                   | index 1    |
/// |--------|-------------------------------------------|------------|
/// | visual | the screen                                | the camera |
/// | audio  | the system sound, or, if the bundle has    | the        |
/// |        | neither camera nor system sound, the       | microphone |
/// |        | microphone                                 |            |
///
/// A source counts as a bundle when its file's path holds "vdpak" anywhere.
class SourceMediaIndexer {
 public:
  /// `T` is `const KelMediaLib::VisualMedia` or `const KelMediaLib::AudioMedia`.
  /// Null when the source has no media at that index; a negative index of
  /// an ordinary source means its first media.
  template <class T>
  static boost::shared_ptr<T> mediaOnTrackIndex(boost::shared_ptr<const KelMediaLib::Source> source,
                                                int trackIndex);
};

}  // namespace OrvMediaLib
