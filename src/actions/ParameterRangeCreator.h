#pragma once

#include "actions/ActionDescription.h"
#include "actions/ParameterRange.h"
#include "values/KeyFrame.h"
#include "values/Range.h"

#include <boost/shared_ptr.hpp>

namespace KelMediaLib {
class Media;
class Parametric;
template <class T>
class Parameter;
}  // namespace KelMediaLib

namespace OrvMediaLib {

/// Makes the `ParameterRange` of a range description, with new key frames
/// that aren't in the parameter yet: the project puts them in when it adds
/// the action.
class ParameterRangeCreator {
 public:
  /// A range over `range` (the media's own time; mapped to key frame time)
  /// of the described parameter of `media`, with both values computed by the
  /// modifier at the start of `range`. With an interpolater name and a
  /// parameter that has a companion, the range asks for that interpolater at
  /// its start. Throws `OrvException` "attempting to create an action on a
  /// media without specified parameter" if the media has no parameter of
  /// doubles of that name.
  static ParameterRange createParamRange(
      boost::shared_ptr<const KelMediaLib::Media> media,
      const ActionDescription::RangeDescription& rangeDescription,
      const KelMediaLib::Range<long long>& range);

  /// A new key frame holding `value` at `time` (the parametric's own time,
  /// mapped to key frame time and truncated toward zero). Throws
  /// `OrvException` "attempting to create an action on a media without
  /// specified parameter" if `parameter` is null.
  static boost::shared_ptr<const KelMediaLib::KeyFrame<double>> createKeyFrameAtTime(
      boost::shared_ptr<const KelMediaLib::Parametric> parametric,
      boost::shared_ptr<const KelMediaLib::Parameter<double>> parameter, long long time,
      double value);
};

}  // namespace OrvMediaLib
