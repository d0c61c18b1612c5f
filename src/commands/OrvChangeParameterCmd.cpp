#include "commands/OrvChangeParameterCmd.h"

#include "actions/OrvException.h"
#include "commands/CascadingOrvMultiChangeParameterCmd.h"
#include "commands/KeyframeAddingOrvChangeParameterCmd.h"
#include "values/InterpolatingParam.h"

#include <stdexcept>

namespace OrvMediaLib {

using KelMediaLib::InterpolatingParam;
using KelMediaLib::Parametric;

boost::shared_ptr<OrvMultiCommand> OrvChangeParameterCmd::createWithDelta(
    boost::shared_ptr<const Parametric> parametric,
    boost::shared_ptr<const InterpolatingParam<double>> parameter,
    boost::shared_ptr<const ActionBin> bin, long long time, double delta) {
  return KeyframeAddingOrvChangeParameterCmd::createWithDelta(bin, parametric, parameter, time,
                                                              delta);
}

boost::shared_ptr<OrvMultiCommand> OrvChangeParameterCmd::createWithAbsolute(
    boost::shared_ptr<const Parametric> parametric,
    boost::shared_ptr<const InterpolatingParam<double>> parameter,
    boost::shared_ptr<const ActionBin> bin, long long time, double value) {
  return KeyframeAddingOrvChangeParameterCmd::create(bin, parametric, parameter, time, value);
}

boost::shared_ptr<OrvMultiCommand> OrvChangeParameterCmd::createGlobalWithAbsolute(
    boost::shared_ptr<const Parametric> parametric,
    boost::shared_ptr<const InterpolatingParam<double>> parameter,
    boost::shared_ptr<const ActionBin> bin, long long time, double value) {
  if (!parameter) {
    throw OrvException("OrvChangeParameterCmd: no parameter given");
  }
  boost::shared_ptr<OrvMultiChangeParameterCmd> command(
      CascadingOrvMultiChangeParameterCmd::create(bin, parameter->name(), time, value));
  command->addParametric(parametric);
  return command;
}

boost::shared_ptr<OrvMultiCommand> OrvChangeParameterCmd::createGlobalWithDelta(
    boost::shared_ptr<const Parametric>, boost::shared_ptr<const InterpolatingParam<double>>,
    boost::shared_ptr<const ActionBin>, long long, double) {
  // Callers that want a global shift use the multi-parametric form, which
  // offers it.
  throw std::runtime_error("not implemented");
}

}  // namespace OrvMediaLib
