#pragma once

#include "media/effects/Effect.h"

#include <boost/shared_ptr.hpp>
#include <boost/weak_ptr.hpp>

#include <string>

namespace KelMediaLib {

class ParameterInterface;

/// An effect known by name only: its parameters are those that the
/// `EffectCatalogue` lists for the name, each an `InterpolatingParam<double>`
/// at rest on its default. A name the catalogue doesn't know gives an effect
/// without parameters, so that a file written by a richer application still
/// loads.
///
/// Written as `<GenericEffect id=".." name="..">` with its `<Parameters>`.
class GenericEffect : public Effect {
 public:
  static boost::shared_ptr<GenericEffect> create(const std::string& name,
                                                 boost::weak_ptr<const ThreadSafe> project);

  /// The parameter of that name; null if the effect has none.
  boost::shared_ptr<ParameterInterface> parameterWithName(const std::string& name) const;

  GenericEffect* clone() const override;

  void xmlName(Options& options) const override;
  void xmlAttributes(Options& options) const override;
  void xmlBody(Options& options, int depth) const override;

 private:
  GenericEffect(const std::string& name, boost::weak_ptr<const ThreadSafe> project);
  GenericEffect(const GenericEffect& other);
};

}  // namespace KelMediaLib
