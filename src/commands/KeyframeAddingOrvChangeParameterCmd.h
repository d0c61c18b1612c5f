#pragma once

#include "commands/OrvChangeParameterCmd.h"

#include <boost/shared_ptr.hpp>

#include <memory>

namespace KelMediaLib {
class CommandHandler;
class Parametric;
template <class T>
class Parameter;
}  // namespace KelMediaLib

namespace OrvMediaLib {

class ActionBin;
struct KeyframeAddingOrvChangeParameterCmdImpl;

/// The local edit: sets a parameter of doubles to a value at one time and
/// keeps the change where the user made it.
///
/// First the actions around the edit are anchored: the next action, the
/// previous one (unless the edit lies before every action) and the one under
/// the edit each get a flat parameter range for the parameter, unless they
/// have one already. Then the key frames change:
///
/// - on a key frame that opens the action under the edit: the key frame
///   before it (the value belongs to what lies before the action);
/// - on any other key frame: that key frame;
/// - inside an action: both ends of the action, by the same difference;
/// - between actions: the key frame before the edit, else the one after it.
///
/// The value is fixed when the command is made. Undo removes what was added,
/// in reverse order, and restores the key frames' values.
class KeyframeAddingOrvChangeParameterCmd : public OrvChangeParameterCmd {
 public:
  /// The edit to `value` at `time` (the parametric's own time). Throws
  /// `OrvException` on a null bin, parametric or parameter.
  static boost::shared_ptr<KeyframeAddingOrvChangeParameterCmd> create(
      boost::shared_ptr<const ActionBin> bin,
      boost::shared_ptr<const KelMediaLib::Parametric> parametric,
      boost::shared_ptr<const KelMediaLib::Parameter<double>> parameter, long long time,
      double value);
  /// The edit to the value read now at `time` (mapped onto the parameter's
  /// axis, not truncated) plus `delta`.
  static boost::shared_ptr<KeyframeAddingOrvChangeParameterCmd> createWithDelta(
      boost::shared_ptr<const ActionBin> bin,
      boost::shared_ptr<const KelMediaLib::Parametric> parametric,
      boost::shared_ptr<const KelMediaLib::Parameter<double>> parameter, long long time,
      double delta);
  ~KeyframeAddingOrvChangeParameterCmd() override;

  void executeCommands(KelMediaLib::CommandHandler const* handler) override;

 private:
  KeyframeAddingOrvChangeParameterCmd(
      boost::shared_ptr<const ActionBin> bin,
      boost::shared_ptr<const KelMediaLib::Parametric> parametric,
      boost::shared_ptr<const KelMediaLib::Parameter<double>> parameter, long long time,
      double value);

  std::unique_ptr<KeyframeAddingOrvChangeParameterCmdImpl> impl_;
};

}  // namespace OrvMediaLib
