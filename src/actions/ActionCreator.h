#pragma once

#include "actions/ActionDescription.h"
#include "values/Range.h"

#include <boost/shared_ptr.hpp>

namespace KelMediaLib {
class Media;
}

namespace OrvMediaLib {

class Action;

/// Turns an `ActionDescription` into an action on a media, with a range for
/// each range description. The action is in no bin and its key frames are in
/// no parameter: the project puts them there.
class ActionCreator {
 public:
  /// A `CenterAction` or an `EdgeAction` on `media` over `range`, the media's
  /// own time (key frames land at its mapping to key frame time). An edge
  /// action's range must start where the media's `mediaTimeRange()` starts
  /// or end where it ends, compared without mapping. Throws `OrvException`
  /// "Unsupported Action Description Type in Action Creator", "attempting to
  /// add an edge action not located at an edge", or what making or adding a
  /// range throws.
  static boost::shared_ptr<Action> createAction(boost::shared_ptr<const KelMediaLib::Media> media,
                                                const ActionDescription& description,
                                                const KelMediaLib::Range<long long>& range);
};

}  // namespace OrvMediaLib
