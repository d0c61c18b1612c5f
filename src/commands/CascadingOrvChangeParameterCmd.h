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
struct CascadingOrvChangeParameterCmdImpl;

/// The global edit: shifts every key frame of a parameter of doubles, first
/// to last, by one delta. No key frame is added or removed; a parameter
/// without key frames stays as it is. The loop runs under the read lock of
/// the parameter's iterators; the key frame writes of the same thread pass.
class CascadingOrvChangeParameterCmd : public OrvChangeParameterCmd {
 public:
  /// The shift that brings the value at `time` (on the parameter's axis, as
  /// it stands) to `value`. The bin is kept, not used. Throws `OrvException`
  /// on a null parametric or parameter.
  static boost::shared_ptr<CascadingOrvChangeParameterCmd> create(
      boost::shared_ptr<const ActionBin> bin,
      boost::shared_ptr<const KelMediaLib::Parametric> parametric,
      boost::shared_ptr<const KelMediaLib::Parameter<double>> parameter, long long time,
      double value);
  /// The shift by `delta`; `time` plays no part.
  static boost::shared_ptr<CascadingOrvChangeParameterCmd> createWithDelta(
      boost::shared_ptr<const ActionBin> bin,
      boost::shared_ptr<const KelMediaLib::Parametric> parametric,
      boost::shared_ptr<const KelMediaLib::Parameter<double>> parameter, long long time,
      double delta);
  ~CascadingOrvChangeParameterCmd() override;

  void executeCommands(KelMediaLib::CommandHandler const* handler) override;

 private:
  CascadingOrvChangeParameterCmd(boost::shared_ptr<const ActionBin> bin,
                                 boost::shared_ptr<const KelMediaLib::Parametric> parametric,
                                 boost::shared_ptr<const KelMediaLib::Parameter<double>> parameter,
                                 long long time, double delta);

  std::unique_ptr<CascadingOrvChangeParameterCmdImpl> impl_;
};

}  // namespace OrvMediaLib
