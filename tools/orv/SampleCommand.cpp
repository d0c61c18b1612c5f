#include "SampleCommand.h"

#include "clipbin/SampleRecording.h"

#include <boost/filesystem.hpp>

#include <exception>
#include <ostream>

namespace orv {

std::string SampleCommand::usage() const {
  return "usage: orv sample DIR\n"
         "\n"
         "Writes DIR/sample.vdpak, a ten-second screen recording made by the library:\n"
         "the screen (screen.mov), its sound (audiotrack0.wav), the cursor, clicks,\n"
         "front windows and changed rectangles (*.dat) and the recording's project\n"
         "(project.xml). The same bytes every run.\n";
}

int SampleCommand::run(const std::vector<std::string>& args, std::ostream& out, std::ostream& err) {
  if (args.size() != 1 || args[0].empty() || args[0][0] == '-') {
    err << usage();
    return kExitUsage;
  }
  try {
    using OrvMediaLib::SampleRecording;
    const std::string bundle = SampleRecording::write(args[0]);
    out << "wrote " << bundle << "\n";
    out << "  screen.mov       " << SampleRecording::width << 'x' << SampleRecording::height << ", "
        << SampleRecording::frames << " frames at " << SampleRecording::framesPerSecond << "/1 ("
        << boost::filesystem::file_size(bundle + "/screen.mov") / 1024 << " KiB)\n"
        << "  audiotrack0.wav  " << SampleRecording::sampleRate / 1000 << " kHz mono 16-bit\n"
        << "  cursorlocation.dat cursoraction.dat frontmost.dat dirtyrect.dat\n"
        << "  project.xml\n";
    return kExitOk;
  } catch (const std::exception& e) {
    err << "orv sample: " << e.what() << '\n';
    return kExitFailure;
  }
}

}  // namespace orv
