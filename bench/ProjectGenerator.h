#pragma once

#include <boost/shared_ptr.hpp>

#include <string>

namespace OrvMediaLib {
class OrvProject;
}

namespace OrvBench {

/// Builds projects of a given number of media that differ only in that
/// number, as a long recording's project grows: text boxes of 300 edit units
/// laid one after the other, alternately on two visual tracks, each with ten
/// key frames on its opacity, its x translation and its z rotation, and one
/// centre action (on its x scale) in the action bin. Built by the commands a
/// user's edits run; the same number always gives the same model and text.
class ProjectGenerator {
 public:
  static constexpr int kTracks = 2;
  static constexpr int kKeyFrames = 10;
  static constexpr long long kMediaDuration = 300;

  /// The project file of a new project at 30/1 with `medias` media, built
  /// by commands and written by the project writer. Throws
  /// `std::invalid_argument` on a negative count.
  static std::string document(int medias);

  /// The project that `document(medias)` reads back to, with an empty
  /// history, as a user's project is after a load.
  static boost::shared_ptr<OrvMediaLib::OrvProject> build(int medias);
};

}  // namespace OrvBench
