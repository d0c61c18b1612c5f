#pragma once

#include "core/KelObject.h"
#include "core/XMLIdentified.h"
#include "core/XMLable.h"
#include "values/InterpolatingParam.h"

#include <boost/shared_ptr.hpp>
#include <boost/weak_ptr.hpp>

#include <string>
#include <vector>

namespace KelMediaLib {

class ThreadSafe;

/// An indexed group of interpolating parameters of doubles, one per dimension
/// (the x, y, z of a translation; the left, top, right, bottom of a crop). The
/// member of dimension i is named by the vector's name followed by i:
/// "translation0", "sourceCrop3".
class VectorParam : public KelObject, public XMLable, public virtual XMLIdentified {
 public:
  /// A vector with one member per default value, each at rest on its default.
  static boost::shared_ptr<VectorParam> create(boost::weak_ptr<const ThreadSafe> project,
                                               const std::string& name,
                                               const std::vector<double>& defaults);

  const std::string& name() const { return name_; }
  int numDimensions() const { return static_cast<int>(members_.size()); }
  /// The member of that dimension; throws `KelMediaLibException` out of range.
  boost::shared_ptr<InterpolatingParam<double>> at(int index) const;
  /// The values of all members at `time`, in dimension order.
  std::vector<double> valueAt(double time) const;
  /// Copies the key frames of each member of `source`, which must have as
  /// many dimensions.
  void copyKeyFramesFrom(const VectorParam& source);

  /// `<VectorParam id=".." name="..">` holding one `<InterpolatingParam id="..">`
  /// per dimension, in dimension order.
  void xmlName(Options& options) const override;
  void xmlAttributes(Options& options) const override;
  void xmlBody(Options& options, int depth) const override;

 private:
  VectorParam(const std::string& name,
              std::vector<boost::shared_ptr<InterpolatingParam<double>>> members);

  std::string name_;
  std::vector<boost::shared_ptr<InterpolatingParam<double>>> members_;
};

}  // namespace KelMediaLib
