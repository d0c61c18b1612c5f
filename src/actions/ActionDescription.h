#pragma once

#include "values/Range.h"

#include <memory>
#include <string>
#include <vector>

namespace OrvMediaLib {

class Modifier;
class Transform;

/// What a caller wants of a new action, with no tie to any media: the kind of
/// action and, for each parameter to animate, how its left and right values
/// follow from the parameter's state. `ActionCreator` turns it into an action.
class ActionDescription {
 public:
  /// The kind of action; a value cast from an integer that is neither is
  /// refused by `ActionCreator` (the fixed underlying type makes every int a
  /// valid value to hold).
  enum ActionType : int { EDGE_ACTION = 0, CENTER_ACTION = 1 };

  /// How one parameter animates: the parameter's name on the media, a
  /// modifier and a transform (owned clones), the value handed to the
  /// modifier, and the name of the interpolater for the range (empty for
  /// none).
  class RangeDescription {
   public:
    /// Clones `modifier` and `transform`; no interpolater.
    RangeDescription(const std::string& parameterName, const Modifier& modifier,
                     const Transform& transform, double value);
    /// An `OrigToModified` modifier, a clone of `transform`, and the
    /// interpolater of that name.
    RangeDescription(const std::string& parameterName, const std::string& interpolater,
                     const Transform& transform, double value);
    /// Clones modifier and transform.
    RangeDescription(const RangeDescription& other);
    RangeDescription& operator=(const RangeDescription& other);
    ~RangeDescription();

    const std::string& parameterName() const { return parameterName_; }
    const Modifier& modifier() const { return *modifier_; }
    const Transform& transform() const { return *transform_; }
    double value() const { return value_; }
    /// The interpolater's name as project files write it; empty for none.
    const std::string& interpolater() const { return interpolater_; }

   private:
    std::string parameterName_;
    std::unique_ptr<Modifier> modifier_;
    std::unique_ptr<Transform> transform_;
    double value_;
    std::string interpolater_;
  };

  typedef std::vector<RangeDescription> RangeDescriptions;
  typedef RangeDescriptions::const_iterator const_iterator;

  explicit ActionDescription(ActionType actionType);

  ActionType actionType() const { return actionType_; }
  /// The range descriptions in order of addition.
  const RangeDescriptions& rangeDescriptions() const { return rangeDescriptions_; }
  const_iterator begin() const { return rangeDescriptions_.begin(); }
  const_iterator end() const { return rangeDescriptions_.end(); }
  /// Appends a copy.
  void addParameterRange(const RangeDescription& rangeDescription);

 private:
  ActionType actionType_;
  // Kept empty at (0, 0): nothing reads or sets it.
  KelMediaLib::Range<long long> range_;
  RangeDescriptions rangeDescriptions_;
};

}  // namespace OrvMediaLib
