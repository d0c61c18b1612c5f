#include "commands/OrvChangeVectorParameterCmd.h"

#include "actions/OrvException.h"
#include "commands/OrvChangeParameterCmd.h"
#include "values/VectorParam.h"

namespace OrvMediaLib {

boost::shared_ptr<OrvChangeVectorParameterCmd> OrvChangeVectorParameterCmd::createWithDelta(
    boost::shared_ptr<const KelMediaLib::Parametric> parametric,
    boost::shared_ptr<const KelMediaLib::VectorParam> vector,
    boost::shared_ptr<const ActionBin> bin, long long time, const KelMediaLib::Point& delta) {
  return boost::shared_ptr<OrvChangeVectorParameterCmd>(
      new OrvChangeVectorParameterCmd(parametric, vector, bin, time, delta));
}

OrvChangeVectorParameterCmd::OrvChangeVectorParameterCmd(
    boost::shared_ptr<const KelMediaLib::Parametric> parametric,
    boost::shared_ptr<const KelMediaLib::VectorParam> vector,
    boost::shared_ptr<const ActionBin> bin, long long time, const KelMediaLib::Point& delta)
    : parametric_(parametric), vector_(vector), bin_(bin), time_(time), delta_(delta) {
  if (!parametric_) {
    throw OrvException("OrvChangeVectorParameterCmd: no parametric given");
  }
  if (!vector_) {
    throw OrvException("OrvChangeVectorParameterCmd: no vector parameter given");
  }
  if (!bin_) {
    throw OrvException("OrvChangeVectorParameterCmd: no action bin given");
  }
}

void OrvChangeVectorParameterCmd::executeCommands(KelMediaLib::CommandHandler const*) {
  // Vectors are edited as x, y, z; a crop's fourth dimension has no component.
  const double components[3] = {delta_.x, delta_.y, delta_.z};
  for (int i = 0; i < 3; ++i) {
    if (components[i] != 0.0) {
      orvExecute(OrvChangeParameterCmd::createWithDelta(parametric_, vector_->at(i), bin_, time_,
                                                        components[i]));
    }
  }
}

}  // namespace OrvMediaLib
