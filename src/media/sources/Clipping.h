#pragma once

#include "core/KelObject.h"
#include "values/Range.h"

#include <boost/shared_ptr.hpp>

#include <string>

namespace KelMediaLib {

class Source;

/// A named stretch of a source that the user marked for later use, in
/// source edit units.
class Clipping : public KelObject {
 public:
  /// Throws `KelMediaLibException` on a null source or a negative duration.
  static boost::shared_ptr<Clipping> create(const std::string& name,
                                            boost::shared_ptr<const Source> source,
                                            Range<long long> range);

  const std::string& name() const { return name_; }
  boost::shared_ptr<const Source> source() const { return source_; }
  Range<long long> range() const { return range_; }
  /// Rises with each clipping made in the process: the order of a bin's
  /// clippings, so that one taken out and put back returns to its place.
  unsigned long long serial() const { return serial_; }

 private:
  Clipping(const std::string& name, boost::shared_ptr<const Source> source, Range<long long> range);

  std::string name_;
  boost::shared_ptr<const Source> source_;
  Range<long long> range_;
  unsigned long long serial_;
};

}  // namespace KelMediaLib
