#include "commands/CascadingOrvMultiChangeParameterCmd.h"

#include "actions/OrvException.h"
#include "actions/ParameterTime.h"
#include "commands/CascadingOrvChangeParameterCmd.h"
#include "values/Parameter.h"
#include "values/ParameterInterface.h"
#include "values/Parametric.h"

#include <boost/pointer_cast.hpp>

namespace OrvMediaLib {

CascadingOrvMultiChangeParameterCmd* CascadingOrvMultiChangeParameterCmd::create(
    boost::shared_ptr<const ActionBin> bin, const std::string& parameterName, long long time,
    double value) {
  return new CascadingOrvMultiChangeParameterCmd(bin, parameterName, time, value,
                                                 &CascadingOrvChangeParameterCmd::create);
}

CascadingOrvMultiChangeParameterCmd* CascadingOrvMultiChangeParameterCmd::createWithDelta(
    boost::shared_ptr<const ActionBin> bin, const std::string& parameterName, long long time,
    double delta) {
  return new CascadingOrvMultiChangeParameterCmd(bin, parameterName, time, delta,
                                                 &CascadingOrvChangeParameterCmd::createWithDelta);
}

CascadingOrvMultiChangeParameterCmd::CascadingOrvMultiChangeParameterCmd(
    boost::shared_ptr<const ActionBin> bin, const std::string& parameterName, long long time,
    double value, Factory factory)
    : bin_(bin), parameterName_(parameterName), time_(time), value_(value), factory_(factory) {}

void CascadingOrvMultiChangeParameterCmd::addParametric(
    boost::shared_ptr<const KelMediaLib::Parametric> parametric) {
  if (!parametric) {
    throw OrvException("CascadingOrvMultiChangeParameterCmd: no parametric given");
  }
  parametrics_.push_back(parametric);
}

void CascadingOrvMultiChangeParameterCmd::executeCommands(KelMediaLib::CommandHandler const*) {
  for (const boost::shared_ptr<const KelMediaLib::Parametric>& parametric : parametrics_) {
    const boost::shared_ptr<const KelMediaLib::Parameter<double>> parameter =
        boost::dynamic_pointer_cast<const KelMediaLib::Parameter<double>>(
            parametric->parameterNamed(parameterName_));
    if (!parameter) {
      continue;
    }
    long long time = parametric->toLocalTime(time_);
    // The single command reads the value at its time as it stands, so the
    // time goes to it on the parameter's axis.
    time = truncateTime(parametric->toParameterTime(static_cast<double>(time)));
    orvExecute(factory_(bin_, parametric, parameter, time, value_));
  }
}

}  // namespace OrvMediaLib
