#include "media/effects/GenericEffect.h"

#include "core/XMLText.h"
#include "media/effects/EffectCatalogue.h"
#include "values/InterpolatingParam.h"
#include "values/ParameterInterface.h"

#include <ostream>

namespace KelMediaLib {

boost::shared_ptr<GenericEffect> GenericEffect::create(const std::string& name,
                                                       boost::weak_ptr<const ThreadSafe> project) {
  return boost::shared_ptr<GenericEffect>(new GenericEffect(name, project));
}

GenericEffect::GenericEffect(const std::string& name, boost::weak_ptr<const ThreadSafe> project)
    : Effect(name, project) {
  for (const EffectParameterSpec& spec : EffectCatalogue::instance().parametersOf(name)) {
    registerParameter(InterpolatingParam<double>::create(project, spec.name, spec.defaultValue));
  }
}

// The copy gets parameters of the same names and defaults as the source
// (whatever the catalogue says now) and copies of their key frames.
GenericEffect::GenericEffect(const GenericEffect& other) : Effect(other) {
  for (const boost::shared_ptr<ParameterInterface>& parameter : other.parameters()) {
    const auto typed = boost::dynamic_pointer_cast<InterpolatingParam<double>>(parameter);
    const boost::shared_ptr<InterpolatingParam<double>> copy =
        InterpolatingParam<double>::create(other.projectMutex(), typed->name(),
                                           typed->defaultValue());
    copy->copyKeyFramesFrom(*typed);
    registerParameter(copy);
  }
}

boost::shared_ptr<ParameterInterface> GenericEffect::parameterWithName(
    const std::string& name) const {
  return parameterNamed(name);
}

GenericEffect* GenericEffect::clone() const { return new GenericEffect(*this); }

void GenericEffect::xmlName(Options& options) const { writeLiteral(options.out, "GenericEffect"); }

void GenericEffect::xmlAttributes(Options& options) const {
  writeFirstXMLAttribute(options.out, "id", options.ident(*this));
  writeXMLAttribute(options.out, "name", name());
}

void GenericEffect::xmlBody(Options& options, int depth) const {
  const std::vector<boost::shared_ptr<ParameterInterface>> all = parameters();
  if (all.empty()) {
    return;
  }
  options.out << genIndent(depth) << "<Parameters>\n";
  for (const boost::shared_ptr<ParameterInterface>& parameter : all) {
    parameter->toXML(options, depth + 1, std::string());
  }
  options.out << genIndent(depth) << "</Parameters>\n";
}

}  // namespace KelMediaLib
