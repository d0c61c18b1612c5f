#pragma once

#include <boost/rational.hpp>

namespace KelMediaLib {

/// Edit units per second of a project, e.g. 30/1.
typedef boost::rational<unsigned long> EditRate;

/// Something that knows the edit rate of its project.
class ProjectEditRate {
 public:
  virtual ~ProjectEditRate() = default;
  virtual EditRate editRate() const = 0;
};

}  // namespace KelMediaLib
