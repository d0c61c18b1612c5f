#pragma once

#include <boost/shared_ptr.hpp>

namespace KelMediaLib {
template <class T>
class Parameter;
}

namespace OrvMediaLib {

/// Gives a parameter that has just received its first key frames the
/// interpolater meant for it: an easing one for the zoom and pan parameters
/// ("translation0".."translation2", "scale0", "scale1"), the linear one for
/// the others.
class InterpolaterEnforcer {
 public:
  /// Sets the destined interpolater on the only key frame of the parameter's
  /// companion. A parameter without a companion, or whose companion has any
  /// other count of key frames (somebody chose already), is left alone.
  /// Reads the name under a read lock of the parameter's project: a project
  /// that has gone throws `boost::bad_weak_ptr`, a null parameter
  /// `OrvException`.
  static void enforceFirstInterpolater(boost::shared_ptr<KelMediaLib::Parameter<double>> parameter);
};

}  // namespace OrvMediaLib
