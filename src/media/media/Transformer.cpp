#include "media/media/Transformer.h"

#include "core/XMLText.h"
#include "values/VectorParam.h"

#include <ostream>
#include <string>

namespace KelMediaLib {

boost::shared_ptr<Transformer> Transformer::create(boost::weak_ptr<const ThreadSafe> project) {
  return boost::shared_ptr<Transformer>(new Transformer(project));
}

Transformer::Transformer(boost::weak_ptr<const ThreadSafe> project)
    : translation_(VectorParam::create(project, "translation", {0.0, 0.0, 0.0})),
      scale_(VectorParam::create(project, "scale", {1.0, 1.0, 1.0})),
      rotation_(VectorParam::create(project, "rotation", {0.0, 0.0, 0.0})),
      anchor_(VectorParam::create(project, "anchor", {0.0, 0.0, 0.0})),
      shear_(VectorParam::create(project, "shear", {0.0, 0.0, 0.0})) {}

std::vector<boost::shared_ptr<VectorParam>> Transformer::vectors() const {
  return {translation_, scale_, rotation_, anchor_, shear_};
}

void Transformer::xmlName(Options& options) const { writeLiteral(options.out, "Transformer"); }

void Transformer::xmlBody(Options& options, int depth) const {
  for (const VectorParam* vector :
       {translation_.get(), scale_.get(), rotation_.get(), anchor_.get(), shear_.get()}) {
    vector->toXML(options, depth, std::string());
  }
}

}  // namespace KelMediaLib
