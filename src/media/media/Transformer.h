#pragma once

#include "core/KelObject.h"
#include "core/XMLable.h"

#include <boost/shared_ptr.hpp>
#include <boost/weak_ptr.hpp>

#include <vector>

namespace KelMediaLib {

class ThreadSafe;
class VectorParam;

/// The placement of a visual object in its mixer's space: translation, scale,
/// rotation (degrees), anchor and shear, each a vector of three members
/// ("translation0".."shear2"). Scale rests at 1, the others at 0. The owner
/// (a media, a visual track or mixer) registers the members with its
/// `Parametric` side through `vectors()`, so key frames lie on its axis.
///
/// Written as `<Transformer>` holding one `<VectorParam>` per vector.
class Transformer : public KelObject, public XMLable {
 public:
  static boost::shared_ptr<Transformer> create(boost::weak_ptr<const ThreadSafe> project);

  boost::shared_ptr<VectorParam> translation() const { return translation_; }
  boost::shared_ptr<VectorParam> scale() const { return scale_; }
  boost::shared_ptr<VectorParam> rotation() const { return rotation_; }
  boost::shared_ptr<VectorParam> anchor() const { return anchor_; }
  boost::shared_ptr<VectorParam> shear() const { return shear_; }

  /// The five vectors: translation, scale, rotation, anchor, shear.
  std::vector<boost::shared_ptr<VectorParam>> vectors() const;

  void xmlName(Options& options) const override;
  void xmlBody(Options& options, int depth) const override;

 protected:
  bool xmlHasAttributes() const override { return false; }

 private:
  explicit Transformer(boost::weak_ptr<const ThreadSafe> project);

  boost::shared_ptr<VectorParam> translation_;
  boost::shared_ptr<VectorParam> scale_;
  boost::shared_ptr<VectorParam> rotation_;
  boost::shared_ptr<VectorParam> anchor_;
  boost::shared_ptr<VectorParam> shear_;
};

}  // namespace KelMediaLib
