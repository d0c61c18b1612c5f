#include "media/effects/EffectCatalogue.h"

#include "core/KelMediaLibException.h"

#include <set>

namespace KelMediaLib {

EffectCatalogue& EffectCatalogue::instance() {
  static EffectCatalogue catalogue;
  return catalogue;
}

EffectCatalogue::EffectCatalogue() {
  effects_["Blur"] = {{"radius", 5.0}};
  effects_["ColorAdjust"] = {{"brightness", 0.0}, {"contrast", 1.0}, {"saturation", 1.0}};
  effects_["DropShadow"] = {{"offset", 4.0}, {"blur", 4.0}, {"opacity", 0.5}};
  effects_["CursorHighlight"] = {{"size", 40.0}, {"opacity", 0.5}};
}

void EffectCatalogue::registerEffect(const std::string& name,
                                     const std::vector<EffectParameterSpec>& parameters) {
  if (name.empty()) {
    throw KelMediaLibException("an effect needs a name to be registered");
  }
  std::set<std::string> seen;
  for (const EffectParameterSpec& spec : parameters) {
    if (spec.name.empty()) {
      throw KelMediaLibException("effect \"" + name + "\" has a parameter without a name");
    }
    if (!seen.insert(spec.name).second) {
      throw KelMediaLibException("effect \"" + name + "\" names the parameter \"" + spec.name +
                                 "\" twice");
    }
  }
  std::lock_guard<std::mutex> lock(mutex_);
  effects_[name] = parameters;
}

bool EffectCatalogue::hasEffect(const std::string& name) const {
  std::lock_guard<std::mutex> lock(mutex_);
  return effects_.count(name) != 0;
}

std::vector<EffectParameterSpec> EffectCatalogue::parametersOf(const std::string& name) const {
  std::lock_guard<std::mutex> lock(mutex_);
  const auto found = effects_.find(name);
  return found == effects_.end() ? std::vector<EffectParameterSpec>() : found->second;
}

std::vector<std::string> EffectCatalogue::effectNames() const {
  std::lock_guard<std::mutex> lock(mutex_);
  std::vector<std::string> names;
  for (const auto& entry : effects_) {
    names.push_back(entry.first);
  }
  return names;
}

}  // namespace KelMediaLib
