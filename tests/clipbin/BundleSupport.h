#pragma once

// Recording bundles that the tests make: small streams, a little metadata,
// and the bundle's project written by the library.

#include "clipbin/VidpakProjectWriter.h"
#include "media/sources/MediaFileWriter.h"

#include <boost/filesystem.hpp>

#include <fstream>
#include <string>

namespace bundletest {

struct BundleShape {
  bool camera;
  bool systemAudio;
};

/// A bundle at `path` (made): one second of 64x48 screen at 30/1 with its
/// four metadata files, and as asked a camera (pictures and a mono sound at
/// 8000 Hz) and a system sound (8000 Hz mono).
inline std::string makeBundle(const std::string& path, BundleShape shape) {
  using KelMediaLib::MediaFileWriter;
  boost::filesystem::create_directories(path);
  MediaFileWriter::write(path + "/screen.mov", {{64, 48, {30, 1}, 30}}, {});
  if (shape.camera) {
    MediaFileWriter::write(path + "/camera.mov", {{32, 24, {30, 1}, 30}}, {{8000, 1, 8000}});
  }
  if (shape.systemAudio) {
    MediaFileWriter::write(path + "/audiotrack0.wav", {}, {{8000, 2, 8000}});
  }
  std::ofstream(path + "/frontmost.dat") << "0 0 0 64 48\n";
  std::ofstream(path + "/cursorlocation.dat") << "0 10 10\n0.5 30 20\n";
  std::ofstream(path + "/cursoraction.dat") << "0.5 1\n";
  std::ofstream(path + "/dirtyrect.dat") << "0.6 1 20 20 8 8\n";
  OrvMediaLib::VidpakProjectWriter::write(path, 1767225600);
  return path;
}

}  // namespace bundletest
