#include "media/project/ProjectWriter.h"

#include "core/IOException.h"
#include "core/KelMediaLibException.h"
#include "core/ReadWriteMutex.h"
#include "core/XMLable.h"
#include "media/media/FileRepresentation.h"
#include "media/media/Media.h"
#include "media/project/Project.h"
#include "media/project/SourceBin.h"
#include "media/sources/MediaFileStats.h"
#include "media/sources/Source.h"
#include "media/timeline/Timeline.h"

#include <boost/shared_ptr.hpp>

#include <fstream>
#include <ostream>
#include <sstream>
#include <vector>

namespace KelMediaLib {

namespace {

std::string describe(const Media& media) {
  std::ostringstream text;
  XMLable::Options options(text);
  media.xmlName(options);
  text << ' ' << media.xmlIdent();
  return text.str();
}

// Refuses, before anything is written, what a reader of the file would refuse.
void checkWritable(const Project& project) {
  const boost::shared_ptr<const SourceBin> bin = project.sourceBin();
  for (const boost::shared_ptr<const Media>& media : project.timeline()->allMedias()) {
    const FileRepresentation* file = dynamic_cast<const FileRepresentation*>(media.get());
    if (file && !bin->containsSource(file->source().get())) {
      throw KelMediaLibException("can't write the project: " + describe(*media) +
                                 " shows the source \"" +
                                 file->source()->mediaFileStats()->filename() +
                                 "\", which isn't in the source bin");
    }
  }
}

// The document itself; the caller holds the read lock and has checked.
void writeDocument(const Project& project, std::ostream& out, int depth, bool declaration) {
  if (declaration) {
    out << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
  }
  XMLable::Options options(out);
  project.toXML(options, depth, std::string());
  out.flush();
  if (!out) {
    throw IOException("bad write of the project file.");
  }
}

}  // namespace

void ProjectWriter::write(const Project& project, std::ostream& out) {
  const ReadWriteMutex::ScopedReadLock lock(project.mutex());
  checkWritable(project);
  writeDocument(project, out, 0, true);
}

void ProjectWriter::write(const Project& project, const std::string& path) {
  const ReadWriteMutex::ScopedReadLock lock(project.mutex());
  checkWritable(project);
  std::ofstream file;
  // A larger buffer than the default saves most of the system calls.
  std::vector<char> buffer(1 << 16);
  file.rdbuf()->pubsetbuf(buffer.data(), static_cast<std::streamsize>(buffer.size()));
  file.open(path, std::ios::out | std::ios::binary | std::ios::trunc);
  if (!file) {
    throw IOException("unable to open file \"" + path + "\" for writing.");
  }
  try {
    writeDocument(project, file, 0, true);
  } catch (const IOException&) {
    throw IOException("unable to write file \"" + path + "\".");
  }
  file.close();
  if (!file) {
    throw IOException("unable to write file \"" + path + "\".");
  }
}

void ProjectWriter::writeElement(const Project& project, std::ostream& out, int depth) {
  const ReadWriteMutex::ScopedReadLock lock(project.mutex());
  checkWritable(project);
  writeDocument(project, out, depth, false);
}

}  // namespace KelMediaLib
