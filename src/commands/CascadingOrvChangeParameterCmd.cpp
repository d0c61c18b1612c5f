#include "commands/CascadingOrvChangeParameterCmd.h"

#include "actions/OrvException.h"
#include "values/ChangeParameterKeyFrameCmd.h"
#include "values/Parameter.h"
#include "values/Parametric.h"

namespace OrvMediaLib {

using KelMediaLib::Parameter;
using KelMediaLib::Parametric;

/// What the edit is about; `value` is the delta.
struct CascadingOrvChangeParameterCmdImpl {
  boost::shared_ptr<const ActionBin> bin;
  boost::shared_ptr<const Parametric> parametric;
  boost::shared_ptr<const Parameter<double>> parameter;
  long long time;
  double value;
};

namespace {

void requireObjects(const boost::shared_ptr<const Parametric>& parametric,
                    const boost::shared_ptr<const Parameter<double>>& parameter) {
  if (!parametric) {
    throw OrvException("CascadingOrvChangeParameterCmd: no parametric given");
  }
  if (!parameter) {
    throw OrvException("CascadingOrvChangeParameterCmd: no parameter given");
  }
}

}  // namespace

boost::shared_ptr<CascadingOrvChangeParameterCmd> CascadingOrvChangeParameterCmd::create(
    boost::shared_ptr<const ActionBin> bin, boost::shared_ptr<const Parametric> parametric,
    boost::shared_ptr<const Parameter<double>> parameter, long long time, double value) {
  requireObjects(parametric, parameter);
  return createWithDelta(bin, parametric, parameter, time,
                         value - parameter->valueAt(static_cast<double>(time)));
}

boost::shared_ptr<CascadingOrvChangeParameterCmd> CascadingOrvChangeParameterCmd::createWithDelta(
    boost::shared_ptr<const ActionBin> bin, boost::shared_ptr<const Parametric> parametric,
    boost::shared_ptr<const Parameter<double>> parameter, long long time, double delta) {
  return boost::shared_ptr<CascadingOrvChangeParameterCmd>(
      new CascadingOrvChangeParameterCmd(bin, parametric, parameter, time, delta));
}

CascadingOrvChangeParameterCmd::CascadingOrvChangeParameterCmd(
    boost::shared_ptr<const ActionBin> bin, boost::shared_ptr<const Parametric> parametric,
    boost::shared_ptr<const Parameter<double>> parameter, long long time, double delta)
    : impl_(new CascadingOrvChangeParameterCmdImpl{bin, parametric, parameter, time, delta}) {
  requireObjects(parametric, parameter);
}

CascadingOrvChangeParameterCmd::~CascadingOrvChangeParameterCmd() = default;

void CascadingOrvChangeParameterCmd::executeCommands(KelMediaLib::CommandHandler const*) {
  const CascadingOrvChangeParameterCmdImpl& impl = *impl_;
  // The iterators hold read locks of the project for the whole loop; the key
  // frame writes of this thread go through under them. Each step asks anew
  // for the next key frame, so the loop sees the parameter as it stands.
  // The key frames are addressed by their own times: without a parametric
  // the change command takes the parameter's axis as it is, where a trip
  // through the media's own time would truncate onto another key frame at
  // any speed but 1.
  for (KelMediaLib::ParameterIterator<double> it = impl.parameter->begin();
       it != impl.parameter->end(); ++it) {
    execute(boost::shared_ptr<KelMediaLib::Command>(
        new KelMediaLib::ChangeParameterKeyFrameCmd<Parameter<double>>(
            boost::shared_ptr<const Parametric>(), impl.parameter, it->first,
            it->second + impl.value)));
  }
}

}  // namespace OrvMediaLib
