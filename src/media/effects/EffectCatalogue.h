#pragma once

#include <map>
#include <mutex>
#include <string>
#include <vector>

namespace KelMediaLib {

/// One parameter of a catalogued effect: an interpolating double.
struct EffectParameterSpec {
  std::string name;
  double defaultValue;
};

/// The process-wide list of effects that `GenericEffect` knows by name, with
/// the parameters each one has. Built in:
///
/// - "Blur": "radius" 5 (pixels);
/// - "ColorAdjust": "brightness" 0, "contrast" 1, "saturation" 1;
/// - "DropShadow": "offset" 4, "blur" 4 (pixels), "opacity" 0.5;
/// - "CursorHighlight": "size" 40 (pixels), "opacity" 0.5.
///
/// Applications add their own with `registerEffect`. Thread-safe.
class EffectCatalogue {
 public:
  static EffectCatalogue& instance();

  EffectCatalogue(const EffectCatalogue&) = delete;
  EffectCatalogue& operator=(const EffectCatalogue&) = delete;

  /// Makes `name` known with these parameters, in this order, replacing an
  /// earlier entry of that name (effects made before keep their parameters).
  /// Throws `KelMediaLibException` on an empty name, an empty parameter name
  /// or a parameter name given twice.
  void registerEffect(const std::string& name, const std::vector<EffectParameterSpec>& parameters);

  bool hasEffect(const std::string& name) const;
  /// The parameters of the effect; empty for an unknown name.
  std::vector<EffectParameterSpec> parametersOf(const std::string& name) const;
  /// Every known name, sorted.
  std::vector<std::string> effectNames() const;

 private:
  EffectCatalogue();

  mutable std::mutex mutex_;
  std::map<std::string, std::vector<EffectParameterSpec>> effects_;
};

}  // namespace KelMediaLib
