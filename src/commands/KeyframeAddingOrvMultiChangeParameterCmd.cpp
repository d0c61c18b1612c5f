#include "commands/KeyframeAddingOrvMultiChangeParameterCmd.h"

#include "actions/OrvException.h"
#include "commands/KeyframeAddingOrvChangeParameterCmd.h"
#include "values/Parameter.h"
#include "values/ParameterInterface.h"
#include "values/Parametric.h"

#include <boost/pointer_cast.hpp>

namespace OrvMediaLib {

KeyframeAddingOrvMultiChangeParameterCmd* KeyframeAddingOrvMultiChangeParameterCmd::create(
    boost::shared_ptr<const ActionBin> bin, const std::string& parameterName, long long time,
    double value) {
  return new KeyframeAddingOrvMultiChangeParameterCmd(bin, parameterName, time, value,
                                                      &KeyframeAddingOrvChangeParameterCmd::create);
}

KeyframeAddingOrvMultiChangeParameterCmd* KeyframeAddingOrvMultiChangeParameterCmd::createWithDelta(
    boost::shared_ptr<const ActionBin> bin, const std::string& parameterName, long long time,
    double delta) {
  return new KeyframeAddingOrvMultiChangeParameterCmd(
      bin, parameterName, time, delta, &KeyframeAddingOrvChangeParameterCmd::createWithDelta);
}

KeyframeAddingOrvMultiChangeParameterCmd::KeyframeAddingOrvMultiChangeParameterCmd(
    boost::shared_ptr<const ActionBin> bin, const std::string& parameterName, long long time,
    double value, Factory factory)
    : bin_(bin), parameterName_(parameterName), time_(time), value_(value), factory_(factory) {}

void KeyframeAddingOrvMultiChangeParameterCmd::addParametric(
    boost::shared_ptr<const KelMediaLib::Parametric> parametric) {
  if (!parametric) {
    throw OrvException("KeyframeAddingOrvMultiChangeParameterCmd: no parametric given");
  }
  parametrics_.push_back(parametric);
}

void KeyframeAddingOrvMultiChangeParameterCmd::executeCommands(KelMediaLib::CommandHandler const*) {
  for (const boost::shared_ptr<const KelMediaLib::Parametric>& parametric : parametrics_) {
    const boost::shared_ptr<const KelMediaLib::Parameter<double>> parameter =
        boost::dynamic_pointer_cast<const KelMediaLib::Parameter<double>>(
            parametric->parameterNamed(parameterName_));
    if (!parameter) {
      continue;
    }
    const long long time = parametric->toLocalTime(time_);
    orvExecute(factory_(bin_, parametric, parameter, time, value_));
  }
}

}  // namespace OrvMediaLib
