#include "ZoomCommand.h"

#include "clipbin/ZoomJob.h"
#include "clipbin/ZoomPicture.h"

#include <cmath>
#include <exception>
#include <locale>
#include <ostream>
#include <sstream>

namespace orv {

namespace {

bool parseZoom(const std::string& text, double* zoom) {
  std::istringstream in(text);
  in.imbue(std::locale::classic());
  in >> *zoom;
  return in && in.peek() == std::char_traits<char>::eof() && std::isfinite(*zoom) && *zoom >= 1.0 &&
         *zoom <= 4.0;
}

}  // namespace

std::string ZoomCommand::usage() const {
  return "usage: orv zoom BUNDLE -o PROJECT [--zoom FACTOR] [--svg FILE]\n"
         "\n"
         "Makes a project of the recording bundle BUNDLE (its screen and sound on\n"
         "tracks), applies automatic zoom from the recording's metadata and writes the\n"
         "project file PROJECT. Reports whether undo and redo give back the project's\n"
         "text exactly; fails unless the file reads back to the same text.\n"
         "\n"
         "  -o PROJECT       the project file to write\n"
         "  --zoom FACTOR    how much each zoom enlarges, 1 to 4 (default 2.0)\n"
         "  --svg FILE       also draw the zooms over the recording's frame, and a\n"
         "                   strip of the timeline, as an SVG picture\n";
}

int ZoomCommand::run(const std::vector<std::string>& args, std::ostream& out, std::ostream& err) {
  std::string bundle, project, svg;
  OrvMediaLib::ZoomJob::Settings settings;
  for (std::size_t i = 0; i < args.size(); ++i) {
    const std::string& arg = args[i];
    const bool hasValue = i + 1 < args.size();
    if (arg == "-o" && hasValue) {
      project = args[++i];
    } else if (arg == "--svg" && hasValue) {
      svg = args[++i];
    } else if (arg == "--zoom" && hasValue) {
      if (!parseZoom(args[++i], &settings.zoom)) {
        err << "orv zoom: --zoom wants a number from 1 to 4, not '" << args[i] << "'\n";
        return kExitUsage;
      }
    } else if (bundle.empty() && !arg.empty() && arg[0] != '-') {
      bundle = arg;
    } else {
      err << usage();
      return kExitUsage;
    }
  }
  if (bundle.empty() || project.empty()) {
    err << usage();
    return kExitUsage;
  }
  try {
    const OrvMediaLib::ZoomJob::Result result =
        OrvMediaLib::ZoomJob::run(bundle, project, settings);
    OrvMediaLib::ZoomJob::printSummary(out, result);
    out << "wrote " << project << '\n';
    if (!svg.empty()) {
      OrvMediaLib::ZoomPicture::write(result, svg);
      out << "wrote " << svg << '\n';
    }
    // The file is the product: it must read back. Undo and redo are reported.
    if (!result.readBackSame) {
      err << "orv zoom: " << project << " doesn't read back as it was written\n";
      return kExitFailure;
    }
    return kExitOk;
  } catch (const std::exception& e) {
    err << "orv zoom: " << e.what() << '\n';
    return kExitFailure;
  }
}

}  // namespace orv
