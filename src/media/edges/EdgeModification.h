#pragma once

#include "core/KelObject.h"
#include "core/XMLable.h"
#include "values/Parameter.h"

#include <boost/scoped_ptr.hpp>
#include <boost/shared_ptr.hpp>

namespace KelMediaLib {

class EdgeModFunc;

/// One parameter's part in a transition at a media's edge: which parameter
/// (a member of the media, e.g. "opacity" or "translation0"; null for a
/// transition that animates no parameter) and the function that modifies it.
/// Owns its copy of the function; copies clone it.
///
/// Written as `<EdgeMod parameter="ident">` with the function element; a
/// modification without a parameter writes `parameter="0"`, an ident that no
/// object has.
class EdgeModification : public KelObject, public XMLable {
 public:
  EdgeModification(boost::shared_ptr<const Parameter<double>> parameter,
                   const EdgeModFunc& function);
  EdgeModification(const EdgeModification& other);
  EdgeModification& operator=(const EdgeModification& other);
  ~EdgeModification() override;

  boost::shared_ptr<const Parameter<double>> parameter() const { return parameter_; }
  const EdgeModFunc& function() const { return *function_; }

  void xmlName(Options& options) const override;
  void xmlAttributes(Options& options) const override;
  void xmlBody(Options& options, int depth) const override;

 private:
  boost::shared_ptr<const Parameter<double>> parameter_;
  boost::scoped_ptr<EdgeModFunc> function_;
};

}  // namespace KelMediaLib
