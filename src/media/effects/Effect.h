#pragma once

#include "core/Cloneable.h"
#include "core/KelObject.h"
#include "core/SubProject.h"
#include "core/XMLable.h"
#include "values/Parametric.h"

#include <boost/weak_ptr.hpp>

#include <string>

namespace KelMediaLib {

class ThreadSafe;

/// A named image or sound effect with animated parameters, held by one
/// `Effectable` (a media). Its key frames lie on the axis of the parametric
/// that holds it: the three time mappings go through that owner, and are
/// the identity while the effect is held by none.
class Effect : public KelObject, public Cloneable, public Parametric, public SubProject,
               public XMLable {
 public:
  ~Effect() override;

  const std::string& name() const { return name_; }

  /// A deep copy: fresh ident, each parameter with copies of the key frames
  /// at the same times, no owner. The caller owns it.
  Effect* clone() const override = 0;

  /// The parametric whose axis the effect's key frames lie on; null when the
  /// effect is held by none. Not owned.
  const Parametric* owner() const { return owner_; }
  /// Set by the `Effectable` that takes the effect in, cleared when it lets go.
  void setOwner(const Parametric* owner) { owner_ = owner; }

  double toParameterTime(double time) const override;
  double fromParameterTime(double time) const override;
  long long toLocalTime(long long time) const override;

 protected:
  Effect(const std::string& name, boost::weak_ptr<const ThreadSafe> project);
  /// Copies name and project; the copy starts without parameters, owner or
  /// ident of `other` (a subclass registers fresh parameters).
  Effect(const Effect& other);

 private:
  std::string name_;
  const Parametric* owner_;
};

}  // namespace KelMediaLib
