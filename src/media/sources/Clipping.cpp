#include "media/sources/Clipping.h"

#include "core/KelMediaLibException.h"

#include <atomic>
#include <string>

namespace KelMediaLib {

boost::shared_ptr<Clipping> Clipping::create(const std::string& name,
                                             boost::shared_ptr<const Source> source,
                                             Range<long long> range) {
  if (!source) {
    throw KelMediaLibException("clipping \"" + name + "\" needs a source");
  }
  if (range.duration < 0) {
    throw KelMediaLibException("clipping \"" + name + "\" can't last " +
                               std::to_string(range.duration));
  }
  return boost::shared_ptr<Clipping>(new Clipping(name, source, range));
}

Clipping::Clipping(const std::string& name, boost::shared_ptr<const Source> source,
                   Range<long long> range)
    : name_(name), source_(source), range_(range) {
  static std::atomic<unsigned long long> made(0);
  serial_ = ++made;
}

}  // namespace KelMediaLib
