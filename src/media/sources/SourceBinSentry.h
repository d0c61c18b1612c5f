#pragma once

#include <boost/shared_ptr.hpp>

namespace KelMediaLib {

class Source;

/// Told by a project's source bin of each source that enters or leaves it,
/// after the change (loads, unloads, and their undo and redo alike). A sentry
/// that throws makes the change fail: the bin is put back and the sentries
/// already told are told the opposite.
class SourceBinSentry {
 public:
  virtual ~SourceBinSentry() = default;

  virtual void sourceLoaded(boost::shared_ptr<const Source> source) = 0;
  virtual void sourceUnloaded(boost::shared_ptr<const Source> source) = 0;
};

}  // namespace KelMediaLib
