#pragma once

#include "core/Cloneable.h"
#include "core/KelObject.h"
#include "core/XMLable.h"

namespace KelMediaLib {

/// What a transition at a media's edge does to one parameter. `apply` gives
/// the parameter's value at a point of the edge, `fraction` running from 0 at
/// the edge's outer end to 1 at its inner end for an entering edge (the left
/// one), and from 0 at the inner end to 1 at the media's end for a leaving
/// edge (the right one). A renderer evaluates it; the model only stores it.
///
/// Written as an element of its own inside `<EdgeMod>`.
class EdgeModFunc : public KelObject, public Cloneable, public XMLable {
 public:
  ~EdgeModFunc() override;

  /// A copy owned by the caller.
  EdgeModFunc* clone() const override = 0;

  /// The modified value. `fraction` is clamped to [0, 1]; a NaN fraction
  /// throws `KelMediaLibException`.
  double apply(double value, double fraction) const;

 protected:
  bool xmlHasAttributes() const override { return false; }
  bool xmlHasBody() const override { return false; }

  /// `apply` with the fraction already checked and clamped.
  virtual double applyClamped(double value, double fraction) const = 0;
};

}  // namespace KelMediaLib
