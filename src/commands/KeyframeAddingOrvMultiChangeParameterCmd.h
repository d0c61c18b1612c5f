#pragma once

#include "commands/OrvMultiChangeParameterCmd.h"

#include <boost/shared_ptr.hpp>

#include <list>
#include <string>

namespace OrvMediaLib {

/// Local edits: for each parametric, a `KeyframeAddingOrvChangeParameterCmd`
/// at the parametric's own time, which the single command maps itself.
class KeyframeAddingOrvMultiChangeParameterCmd : public OrvMultiChangeParameterCmd {
 public:
  /// A new command, the caller's to wrap in a shared pointer, whose members
  /// set the value to `value`.
  static KeyframeAddingOrvMultiChangeParameterCmd* create(boost::shared_ptr<const ActionBin> bin,
                                                          const std::string& parameterName,
                                                          long long time, double value);
  /// The same, with members that change the value by `delta`.
  static KeyframeAddingOrvMultiChangeParameterCmd* createWithDelta(
      boost::shared_ptr<const ActionBin> bin, const std::string& parameterName, long long time,
      double delta);

  void executeCommands(KelMediaLib::CommandHandler const* handler) override;
  void addParametric(boost::shared_ptr<const KelMediaLib::Parametric> parametric) override;

 private:
  KeyframeAddingOrvMultiChangeParameterCmd(boost::shared_ptr<const ActionBin> bin,
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
