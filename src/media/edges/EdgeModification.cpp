#include "media/edges/EdgeModification.h"

#include "core/XMLText.h"
#include "media/edges/EdgeModFunc.h"

#include <ostream>

namespace KelMediaLib {

EdgeModification::EdgeModification(boost::shared_ptr<const Parameter<double>> parameter,
                                   const EdgeModFunc& function)
    : parameter_(parameter), function_(function.clone()) {}

EdgeModification::EdgeModification(const EdgeModification& other)
    : KelObject(other), XMLable(other), parameter_(other.parameter_),
      function_(other.function_->clone()) {}

EdgeModification& EdgeModification::operator=(const EdgeModification& other) {
  if (this != &other) {
    function_.reset(other.function_->clone());
    parameter_ = other.parameter_;
  }
  return *this;
}

EdgeModification::~EdgeModification() = default;

void EdgeModification::xmlName(Options& options) const { writeLiteral(options.out, "EdgeMod"); }

void EdgeModification::xmlAttributes(Options& options) const {
  writeFirstXMLAttribute(options.out, "parameter", parameter_ ? options.ident(*parameter_) : 0u);
}

void EdgeModification::xmlBody(Options& options, int depth) const {
  function_->toXML(options, depth, std::string());
}

}  // namespace KelMediaLib
