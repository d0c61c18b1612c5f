#pragma once

#include <string>

namespace KelMediaLib {

/// Root of the media model's classes: a virtual destructor and a text that
/// describes the object for diagnostics.
class KelObject {
 public:
  virtual ~KelObject();
  /// A short human-readable description; by default the class name.
  virtual std::string description() const;
};

}  // namespace KelMediaLib
