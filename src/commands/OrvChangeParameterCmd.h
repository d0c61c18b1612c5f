#pragma once

#include "commands/OrvMultiCommand.h"

#include <boost/shared_ptr.hpp>

namespace KelMediaLib {
class Parametric;
template <class T>
class InterpolatingParam;
}  // namespace KelMediaLib

namespace OrvMediaLib {

class ActionBin;

/// A user's change of a parameter of doubles on a parametric, turned into key
/// frame changes (and, for a local edit, into new parameter ranges on the
/// actions around it). The factories pick the kind of edit:
///
/// - local (`createWithDelta`, `createWithAbsolute`): a
///   `KeyframeAddingOrvChangeParameterCmd` at `time`;
/// - global (`createGlobalWithAbsolute`): every key frame of the parameter
///   shifts by one delta, through a `CascadingOrvMultiChangeParameterCmd`.
///
/// `time` is on the parametric's own axis. The bin holds the parametric's
/// actions. All kinds are groups: undo and redo replay their members.
class OrvChangeParameterCmd : public OrvMultiCommand {
 public:
  /// A local edit to the parameter's value at `time` plus `delta`.
  static boost::shared_ptr<OrvMultiCommand> createWithDelta(
      boost::shared_ptr<const KelMediaLib::Parametric> parametric,
      boost::shared_ptr<const KelMediaLib::InterpolatingParam<double>> parameter,
      boost::shared_ptr<const ActionBin> bin, long long time, double delta);
  /// A local edit to `value` at `time`.
  static boost::shared_ptr<OrvMultiCommand> createWithAbsolute(
      boost::shared_ptr<const KelMediaLib::Parametric> parametric,
      boost::shared_ptr<const KelMediaLib::InterpolatingParam<double>> parameter,
      boost::shared_ptr<const ActionBin> bin, long long time, double value);
  /// A global edit that brings the value at `time` to `value`: a cascading
  /// group over the parameter's name with this one parametric in it.
  static boost::shared_ptr<OrvMultiCommand> createGlobalWithAbsolute(
      boost::shared_ptr<const KelMediaLib::Parametric> parametric,
      boost::shared_ptr<const KelMediaLib::InterpolatingParam<double>> parameter,
      boost::shared_ptr<const ActionBin> bin, long long time, double value);
  /// Not offered: always throws `std::runtime_error` "not implemented". A
  /// global shift by a delta is `OrvMultiChangeParameterCmd::createGlobalWithDelta`.
  static boost::shared_ptr<OrvMultiCommand> createGlobalWithDelta(
      boost::shared_ptr<const KelMediaLib::Parametric> parametric,
      boost::shared_ptr<const KelMediaLib::InterpolatingParam<double>> parameter,
      boost::shared_ptr<const ActionBin> bin, long long time, double delta);
};

}  // namespace OrvMediaLib
