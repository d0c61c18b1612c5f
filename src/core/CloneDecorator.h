#pragma once

#include <boost/shared_ptr.hpp>

namespace KelMediaLib {

/// Hook run by the model right after it has cloned an object of type T, so
/// that whatever is attached to the source can follow the clone.
template <class T>
class CloneDecorator {
 public:
  virtual ~CloneDecorator() = default;
  virtual void execute(const T* source, boost::shared_ptr<const T> clone) = 0;
};

}  // namespace KelMediaLib
