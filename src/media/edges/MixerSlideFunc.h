#pragma once

#include "media/edges/EdgeModFunc.h"

namespace KelMediaLib {

/// Base of the slides, which move a translation member across the mixer.
/// The distance is `extent`, the mixer's width for a horizontal slide and its
/// height for a vertical one, in the translation's units. A function read
/// from a file doesn't know its mixer and has extent 1 (a translation in
/// units of the mixer's size); an application that evaluates it in pixels
/// gives the extent first with `setExtent`.
class MixerSlideFunc : public EdgeModFunc {
 public:
  double extent() const { return extent_; }
  /// Throws `KelMediaLibException` on a negative or non-finite extent.
  void setExtent(double extent);

 protected:
  explicit MixerSlideFunc(double extent);

 private:
  double extent_;
};

}  // namespace KelMediaLib
