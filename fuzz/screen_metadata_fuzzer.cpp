// Reads arbitrary bytes as a screen metadata file. The first byte picks the
// file's kind (front window, cursor location, cursor action, changed
// rectangles), the rest is its text. A read either fills the parameter or
// throws `KelMediaLibException` and leaves the metadata as it was; anything
// else is a fault.

#include "core/KelMediaLibException.h"
#include "media/media/VMFile.h"
#include "media/metadata/ScreenMetaData.h"
#include "media/project/InternalProject.h"
#include "media/sources/MediaFileStats.h"
#include "media/sources/Source.h"
#include "core/XMLText.h"

#include <boost/filesystem.hpp>

#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>

namespace {

using namespace KelMediaLib;

// The recording "screen.mov" in a folder of this process; the metadata file
// lies beside it, so that its relative name is resolved as in a bundle.
struct Recording {
  Recording()
      : folder((boost::filesystem::temp_directory_path() /
                ("orv-metadata-fuzz-" + std::to_string(::getpid())))
                   .string()),
        project(InternalProject::create(EditRate(30, 1))) {
    boost::filesystem::create_directories(folder);
    const auto stats = MediaFileStats::create();
    stats->setFilename(folder + "/screen.mov");
    MediaFileStats::TrackStats track;
    track.range = Range<long long>(0, 300);
    stats->addTrackStats(track);
    video = VMFile::create(track.range, project, Source::create(stats), 0);
  }
  ~Recording() {
    boost::system::error_code ignored;
    boost::filesystem::remove_all(folder, ignored);
  }

  std::string folder;
  boost::shared_ptr<InternalProject> project;
  boost::shared_ptr<VMFile> video;
};

template <class T>
std::string keyFrames(const Parameter<T>& parameter) {
  std::ostringstream out;
  for (const auto& frame : parameter.keyFrames()) {
    out << frame->time() << ':';
    writeXMLValue(out, frame->value());
    out << ' ';
  }
  return out.str();
}

std::string everything(const ScreenMetaData& metaData) {
  return keyFrames(*metaData.frontWindowParam()) + '|' +
         keyFrames(*metaData.cursorLocationParam()) + '|' +
         keyFrames(*metaData.cursorActionParam()) + '|' + keyFrames(*metaData.dirtyRectsParam());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static Recording recording;
  if (size == 0) {
    return 0;
  }
  const std::string name = "metadata.dat";
  std::ofstream(recording.folder + "/" + name, std::ios::binary | std::ios::trunc)
      .write(reinterpret_cast<const char*>(data + 1), static_cast<std::streamsize>(size - 1));
  const auto metaData =
      ScreenMetaData::create(recording.project, recording.video, recording.project);
  const std::string before = everything(*metaData);
  try {
    switch (data[0] % 4) {
      case 0:
        metaData->setFrontWindowFile(name);
        break;
      case 1:
        metaData->setCursorLocationFile(name);
        break;
      case 2:
        metaData->setCursorActionFile(name);
        break;
      default:
        metaData->setDirtyRectsFile(name);
        break;
    }
  } catch (const KelMediaLibException&) {
    // A refused file changes nothing.
    if (everything(*metaData) != before) {
      std::abort();
    }
  }
  return 0;
}
