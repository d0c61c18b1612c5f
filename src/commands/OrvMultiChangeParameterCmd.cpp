#include "commands/OrvMultiChangeParameterCmd.h"

#include "commands/CascadingOrvMultiChangeParameterCmd.h"
#include "commands/KeyframeAddingOrvMultiChangeParameterCmd.h"

namespace OrvMediaLib {

boost::shared_ptr<OrvMultiChangeParameterCmd> OrvMultiChangeParameterCmd::create(
    boost::shared_ptr<const ActionBin> bin, const std::string& parameterName, long long time,
    double value) {
  return boost::shared_ptr<OrvMultiChangeParameterCmd>(
      KeyframeAddingOrvMultiChangeParameterCmd::create(bin, parameterName, time, value));
}

boost::shared_ptr<OrvMultiChangeParameterCmd> OrvMultiChangeParameterCmd::createWithDelta(
    boost::shared_ptr<const ActionBin> bin, const std::string& parameterName, long long time,
    double delta) {
  return boost::shared_ptr<OrvMultiChangeParameterCmd>(
      KeyframeAddingOrvMultiChangeParameterCmd::createWithDelta(bin, parameterName, time, delta));
}

boost::shared_ptr<OrvMultiChangeParameterCmd> OrvMultiChangeParameterCmd::createGlobal(
    boost::shared_ptr<const ActionBin> bin, const std::string& parameterName, long long time,
    double value) {
  return boost::shared_ptr<OrvMultiChangeParameterCmd>(
      CascadingOrvMultiChangeParameterCmd::create(bin, parameterName, time, value));
}

boost::shared_ptr<OrvMultiChangeParameterCmd> OrvMultiChangeParameterCmd::createGlobalWithDelta(
    boost::shared_ptr<const ActionBin> bin, const std::string& parameterName, long long time,
    double delta) {
  return boost::shared_ptr<OrvMultiChangeParameterCmd>(
      CascadingOrvMultiChangeParameterCmd::createWithDelta(bin, parameterName, time, delta));
}

}  // namespace OrvMediaLib
