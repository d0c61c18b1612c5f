#pragma once

#include "values/Parameter.h"

#include <boost/shared_ptr.hpp>

#include <string>
#include <vector>

namespace KelMediaLib {
class EdgeModFunc;
class Media;
}  // namespace KelMediaLib

namespace OrvMediaLib {

/// What a transition does at a media's edges: for each parameter, by name,
/// the function that modifies it at the left edge and the one at the right
/// edge. A value: copies are independent descriptions.
class TransitionDescription {
 public:
  /// One parameter's part in a transition. Holds its own clones of the two
  /// functions, which nobody changes afterwards, so copies may share them.
  class ModifierDescription {
   public:
    /// `parameterName` names a parameter of the media ("opacity",
    /// "translation0"); the functions are cloned.
    ModifierDescription(std::string parameterName, const KelMediaLib::EdgeModFunc& leftFunction,
                        const KelMediaLib::EdgeModFunc& rightFunction);

    const std::string& parameterName() const { return parameterName_; }
    /// The function for the left edge (the media's start).
    const KelMediaLib::EdgeModFunc& leftFunction() const { return *left_; }
    /// The function for the right edge (the media's end).
    const KelMediaLib::EdgeModFunc& rightFunction() const { return *right_; }

    /// The media's parameter of this name as a `Parameter<double>`; null when
    /// the media has no such parameter or it holds values of another type.
    boost::shared_ptr<const KelMediaLib::Parameter<double>> parameterOf(
        const KelMediaLib::Media& media) const;

   private:
    std::string parameterName_;
    boost::shared_ptr<const KelMediaLib::EdgeModFunc> left_;
    boost::shared_ptr<const KelMediaLib::EdgeModFunc> right_;
  };

  typedef std::vector<ModifierDescription> ModifierDescriptions;
  typedef ModifierDescriptions::const_iterator const_iterator;

  /// An empty description: a transition that modifies nothing.
  TransitionDescription();

  /// Appends a copy of `modifier`; the order of adding is the order of use.
  void addModifier(const ModifierDescription& modifier);

  const_iterator begin() const { return modifiers_.begin(); }
  const_iterator end() const { return modifiers_.end(); }
  const ModifierDescriptions& modifierDescriptions() const { return modifiers_; }

 private:
  ModifierDescriptions modifiers_;
};

}  // namespace OrvMediaLib
