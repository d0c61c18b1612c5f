#pragma once

#include "commands/OrvMultiChangeParameterCmd.h"

#include <boost/shared_ptr.hpp>

#include <list>
#include <string>

namespace OrvMediaLib {

/// Global edits: for each parametric, a `CascadingOrvChangeParameterCmd` at
/// the common time mapped onto that parametric's parameter axis (truncated),
/// since the single command reads the parameter at its time as it stands.
class CascadingOrvMultiChangeParameterCmd : public OrvMultiChangeParameterCmd {
 public:
  /// A new command, the caller's to wrap in a shared pointer, whose members
  /// set the value to `value`.
  static CascadingOrvMultiChangeParameterCmd* create(boost::shared_ptr<const ActionBin> bin,
                                                     const std::string& parameterName,
                                                     long long time, double value);
  /// The same, with members that change the value by `delta`.
  static CascadingOrvMultiChangeParameterCmd* createWithDelta(
      boost::shared_ptr<const ActionBin> bin, const std::string& parameterName, long long time,
      double delta);

  void executeCommands(KelMediaLib::CommandHandler const* handler) override;
  void addParametric(boost::shared_ptr<const KelMediaLib::Parametric> parametric) override;

 private:
  CascadingOrvMultiChangeParameterCmd(boost::shared_ptr<const ActionBin> bin,
                                      const std::string& parameterName, long long time,
                                      double value, Factory factory);

  std::list<boost::shared_ptr<const KelMediaLib::Parametric>> parametrics_;
  boost::shared_ptr<const ActionBin> bin_;
  std::string parameterName_;
  long long time_;
  double value_;
  Factory factory_;
};

}  // namespace OrvMediaLib
