#pragma once

#include "commands/OrvMultiCommand.h"

#include <boost/function.hpp>
#include <boost/shared_ptr.hpp>

#include <string>

namespace KelMediaLib {
class CommandHandler;
class Parametric;
template <class T>
class Parameter;
}  // namespace KelMediaLib

namespace OrvMediaLib {

class ActionBin;

/// One edit of the parameter of one name on several parametrics, fanned out
/// into a single change command per parametric that has a parameter of
/// doubles of that name; the others are passed over. `time` is common to the
/// parametrics (the timeline's); each parametric turns it into its own.
class OrvMultiChangeParameterCmd : public OrvMultiCommand {
 public:
  /// Makes the single command for one parametric from (bin, parametric,
  /// parameter, time, value).
  typedef boost::function<boost::shared_ptr<OrvCommand>(
      boost::shared_ptr<const ActionBin>, boost::shared_ptr<const KelMediaLib::Parametric>,
      boost::shared_ptr<const KelMediaLib::Parameter<double>>, long long, double)>
      Factory;

  /// Local edits to `value`.
  static boost::shared_ptr<OrvMultiChangeParameterCmd> create(
      boost::shared_ptr<const ActionBin> bin, const std::string& parameterName, long long time,
      double value);
  /// Local edits by `delta`.
  static boost::shared_ptr<OrvMultiChangeParameterCmd> createWithDelta(
      boost::shared_ptr<const ActionBin> bin, const std::string& parameterName, long long time,
      double delta);
  /// Global edits that bring the value at `time` to `value`.
  static boost::shared_ptr<OrvMultiChangeParameterCmd> createGlobal(
      boost::shared_ptr<const ActionBin> bin, const std::string& parameterName, long long time,
      double value);
  /// Global edits that shift every key frame by `delta`.
  static boost::shared_ptr<OrvMultiChangeParameterCmd> createGlobalWithDelta(
      boost::shared_ptr<const ActionBin> bin, const std::string& parameterName, long long time,
      double delta);

  void executeCommands(KelMediaLib::CommandHandler const* handler) override = 0;
  /// Appends a parametric to change, before the command runs; members run in
  /// the order of addition. Throws `OrvException` on a null parametric.
  virtual void addParametric(boost::shared_ptr<const KelMediaLib::Parametric> parametric) = 0;
};

}  // namespace OrvMediaLib
