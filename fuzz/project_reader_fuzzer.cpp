// Loads arbitrary bytes as a project file. A load either gives a project or
// throws one of the reader's exceptions; a project it gives must be writable.
// Anything else (a crash, a sanitizer report, another exception, a leak) is
// a fault.

#include "actions/OrvException.h"
#include "core/KelMediaLibException.h"
#include "media/project/ProjectWriter.h"
#include "parser/OrvParser.h"
#include "project/OrvProject.h"

#include <boost/lexical_cast/bad_lexical_cast.hpp>

#include <cstddef>
#include <cstdint>
#include <sstream>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::istringstream in(std::string(reinterpret_cast<const char*>(data), size));
  OrvMediaLib::OrvParser parser(nullptr, nullptr);
  boost::shared_ptr<OrvMediaLib::OrvProject> project;
  try {
    project = parser.parseProject(in);
  } catch (const KelMediaLib::KelMediaLibException&) {
  } catch (const OrvMediaLib::OrvException&) {
  } catch (const boost::bad_lexical_cast&) {
  }
  if (project) {
    std::ostringstream out;
    KelMediaLib::ProjectWriter::write(*project, out);
  }
  return 0;
}
