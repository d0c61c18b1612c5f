#pragma once

#include "commands/TransitionDescription.h"

#include <string>
#include <vector>

namespace OrvMediaLib {

/// Transitions ready for an application to offer by name. Each is a
/// `TransitionDescription` to give to `AddLeftTransitionCmd`,
/// `AddRightTransitionCmd` or the dragged-removal commands; the left
/// function enters the media, the right one leaves it.
///
/// | Name               | Parameter      | Left edge                 | Right edge           |
/// |--------------------|----------------|---------------------------|----------------------|
/// | "Fade"             | "opacity"      | `FadeInFunc`              | `FadeOutFunc`        |
/// | "Horizontal Slide" | "translation0" | `MixerXSlideInFunc`       | `MixerXSlideOutFunc` |
/// | "Vertical Slide"   | "translation1" | `MixerYSlideInFunc` (0°)  | `MixerYSlideOutFunc` |
/// | "Rotate"           | "rotation2"    | `RotateFunc` (1 turn)     | `RotateFunc` (1 turn)|
///
/// The slides move the media's translation across the mixer: it comes in
/// from the left (from below) and leaves to the right (upwards). Their extent
/// is 1, a translation in units of the mixer's width or height, as a slide
/// read from a project file has; a renderer that works in pixels gives them
/// the mixer's size. "Rotate" turns the picture once in its plane. Only
/// visual media have these parameters: on an audio media each modification
/// is added without a parameter.
class ReadyTransitions {
 public:
  /// The names of the table, in its order.
  static std::vector<std::string> names();
  /// The transition of that name (names are case-sensitive); throws
  /// `OrvException` for a name the table doesn't have.
  static TransitionDescription transitionNamed(const std::string& name);
};

}  // namespace OrvMediaLib
