#include "edge/ReadyTransitions.h"

#include "actions/OrvException.h"
#include "media/edges/FadeInFunc.h"
#include "media/edges/FadeOutFunc.h"
#include "media/edges/MixerXSlideInFunc.h"
#include "media/edges/MixerXSlideOutFunc.h"
#include "media/edges/MixerYSlideInFunc.h"
#include "media/edges/MixerYSlideOutFunc.h"
#include "media/edges/RotateFunc.h"

namespace OrvMediaLib {

namespace {

typedef TransitionDescription::ModifierDescription ModifierDescription;

TransitionDescription oneModifier(const ModifierDescription& modifier) {
  TransitionDescription description;
  description.addModifier(modifier);
  return description;
}

struct Entry {
  const char* name;
  TransitionDescription (*make)();
};

const Entry kTable[] = {
    {"Fade",
     [] {
       return oneModifier(
           ModifierDescription("opacity", KelMediaLib::FadeInFunc(), KelMediaLib::FadeOutFunc()));
     }},
    {"Horizontal Slide",
     [] {
       return oneModifier(ModifierDescription("translation0", KelMediaLib::MixerXSlideInFunc(),
                                              KelMediaLib::MixerXSlideOutFunc()));
     }},
    {"Vertical Slide",
     [] {
       return oneModifier(ModifierDescription("translation1", KelMediaLib::MixerYSlideInFunc(0.0),
                                              KelMediaLib::MixerYSlideOutFunc()));
     }},
    {"Rotate",
     [] {
       return oneModifier(ModifierDescription("rotation2", KelMediaLib::RotateFunc(1),
                                              KelMediaLib::RotateFunc(1)));
     }},
};

}  // namespace

std::vector<std::string> ReadyTransitions::names() {
  std::vector<std::string> result;
  for (const Entry& entry : kTable) {
    result.push_back(entry.name);
  }
  return result;
}

TransitionDescription ReadyTransitions::transitionNamed(const std::string& name) {
  for (const Entry& entry : kTable) {
    if (name == entry.name) {
      return entry.make();
    }
  }
  throw OrvException("no ready transition named \"" + name + "\"");
}

}  // namespace OrvMediaLib
