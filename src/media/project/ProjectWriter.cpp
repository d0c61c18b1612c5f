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

#include <cstring>
#include <fstream>
#include <locale>
#include <ostream>
#include <sstream>
#include <streambuf>
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
      throw KelMediaLibException(
          "can't write the project: " + describe(*media) + " shows the source \"" +
          file->source()->mediaFileStats()->filename() + "\", which isn't in the source bin");
    }
  }
}

// Gathers the document in blocks and hands each block to the target in one
// write. The elements are written in many small pieces; each then costs a
// copy here instead of a pass through the target's buffer and its checks.
class BlockBuffer : public std::streambuf {
 public:
  explicit BlockBuffer(std::ostream& target) : target_(target), block_(1 << 16) { restart(); }

  // Hands over what is gathered; false once the target has failed.
  bool drain() {
    target_.write(pbase(), pptr() - pbase());
    restart();
    return static_cast<bool>(target_);
  }

 protected:
  std::streamsize xsputn(const char* text, std::streamsize size) override {
    if (size > epptr() - pptr()) {
      if (!drain()) {
        return 0;
      }
      if (size > epptr() - pptr()) {
        target_.write(text, size);
        return target_ ? size : 0;
      }
    }
    std::memcpy(pptr(), text, static_cast<std::size_t>(size));
    pbump(static_cast<int>(size));
    return size;
  }

  int_type overflow(int_type c) override {
    if (!drain()) {
      return traits_type::eof();
    }
    if (!traits_type::eq_int_type(c, traits_type::eof())) {
      *pptr() = traits_type::to_char_type(c);
      pbump(1);
    }
    return traits_type::not_eof(c);
  }

  int sync() override { return drain() ? 0 : -1; }

 private:
  void restart() { setp(block_.data(), block_.data() + block_.size()); }

  std::ostream& target_;
  std::vector<char> block_;
};

// The document itself; the caller holds the read lock and has checked. The
// text goes through a stream of its own in the classic locale, so that the
// target's locale can't group the digits of a number.
void writeDocument(const Project& project, std::ostream& out, int depth, bool declaration) {
  BlockBuffer buffer(out);
  std::ostream text(&buffer);
  text.imbue(std::locale::classic());
  if (declaration) {
    text << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
  }
  XMLable::Options options(text);
  project.toXML(options, depth, std::string());
  text.flush();
  out.flush();
  if (!text || !out) {
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
  std::ofstream file(path, std::ios::out | std::ios::binary | std::ios::trunc);
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

void ProjectWriter::writeElement(const Project& project, XMLable::Options& options, int depth) {
  const ReadWriteMutex::ScopedReadLock lock(project.mutex());
  checkWritable(project);
  project.toXML(options, depth, std::string());
  if (!options.out) {
    throw IOException("bad write of the project file.");
  }
}

}  // namespace KelMediaLib
