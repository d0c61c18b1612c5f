#pragma once

#include "commands/OrvMultiCommand.h"

#include <boost/shared_ptr.hpp>

namespace KelMediaLib {
class CommandHandler;
class Parametric;
template <class T>
class Parameter;
}  // namespace KelMediaLib

namespace OrvMediaLib {

class ActionBin;

/// The earlier form of the local edit, kept for applications that use it:
/// moves key frames of a parameter of doubles by a delta.
///
/// An edit on either end of the action under `time` first gives that action
/// a flat range for the parameter if it has none over its whole stretch. Then
/// an action with such a range, edited off its ends, moves both its ends; else
/// the key frame at the edit moves; else the key frame before it, or after it.
/// `time` is on the parametric's own axis.
class OrigOrvChangeParamDeltaCmd : public OrvMultiCommand {
 public:
  /// Throws `OrvException` on a null parametric or parameter; a null bin is
  /// refused when the command runs.
  static boost::shared_ptr<OrigOrvChangeParamDeltaCmd> create(
      boost::shared_ptr<const KelMediaLib::Parametric> parametric,
      boost::shared_ptr<const KelMediaLib::Parameter<double>> parameter,
      boost::shared_ptr<const ActionBin> bin, long long time, double delta);

  /// Throws `OrvException` "Can't modify an action without an actionbin!"
  /// when the command has no bin.
  void executeCommands(KelMediaLib::CommandHandler const* handler) override;

 private:
  OrigOrvChangeParamDeltaCmd(boost::shared_ptr<const KelMediaLib::Parametric> parametric,
                             boost::shared_ptr<const KelMediaLib::Parameter<double>> parameter,
                             boost::shared_ptr<const ActionBin> bin, long long time, double delta);

  boost::shared_ptr<const KelMediaLib::Parametric> parametric_;
  boost::shared_ptr<const KelMediaLib::Parameter<double>> parameter_;
  boost::shared_ptr<const ActionBin> bin_;
  long long time_;
  double delta_;
};

}  // namespace OrvMediaLib
