#pragma once

#include "clipbin/ZoomJob.h"

#include <string>

namespace OrvMediaLib {

/// A picture of what automatic zoom did to a recording, as an SVG document
/// that any browser shows: the recording's frame at half size with the
/// cursor's path, the clicks and each zoom's rectangle, numbered; below it a
/// strip of the timeline, a tick a second, with the clicks and each zoom
/// action as a bar from the start of its fade to its end.
class ZoomPicture {
 public:
  static std::string svg(const ZoomJob::Result& result);
  /// Writes `svg(result)` to `path`; throws `IOException` naming the path.
  static void write(const ZoomJob::Result& result, const std::string& path);
};

}  // namespace OrvMediaLib
