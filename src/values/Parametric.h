#pragma once

#include "core/XMLIdentified.h"

#include <boost/shared_ptr.hpp>

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace KelMediaLib {

class ParameterInterface;
class VectorParam;

/// Something that owns parameters and finds them by name: a media, an
/// effect, a mixer.
///
/// Time axes: a parametric has its own time (what callers of the editing
/// model speak in) and the axis on which its parameters' key frames lie; the
/// two mappings convert between them. By default both are the identity. A time
/// common to several parametrics (the timeline's) becomes the parametric's own
/// time through `toLocalTime`.
class Parametric : public virtual XMLIdentified {
 public:
  Parametric();
  /// A copy owns no parameters: each parametric registers its own.
  Parametric(const Parametric& other);
  Parametric& operator=(const Parametric&) = delete;
  virtual ~Parametric();

  virtual double toParameterTime(double time) const;
  virtual double fromParameterTime(double time) const;
  virtual long long toLocalTime(long long time) const;

  /// The parameter of that name, a plain one or a vector's member ("scale1");
  /// null if there is none.
  virtual boost::shared_ptr<ParameterInterface> parameterNamed(const std::string& name) const;

  /// Every parameter in the order of registration (a vector's members in
  /// dimension order).
  std::vector<boost::shared_ptr<ParameterInterface>> parameters() const;

 protected:
  /// Makes the parameter known under its name; a second parameter of the same
  /// name is a programming error and throws `KelMediaLibException`.
  void registerParameter(const boost::shared_ptr<ParameterInterface>& parameter);
  /// Makes each member of the vector known under its name.
  void registerVector(const VectorParam& vector);

 private:
  /// The place in `byName_` where `name` is or would go.
  std::vector<std::uint32_t>::const_iterator findName(const std::string& name) const;
  /// Whether a parameter of that name is registered.
  bool hasName(const std::string& name) const;

  std::vector<boost::shared_ptr<ParameterInterface>> ordered_;
  // Indices into `ordered_`, sorted by the parameters' names: a media has a
  // few dozen parameters, and a copy of each name (or a map's node) was a
  // good part of a loaded project's memory.
  std::vector<std::uint32_t> byName_;
};

}  // namespace KelMediaLib
