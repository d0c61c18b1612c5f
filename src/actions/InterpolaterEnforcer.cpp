#include "actions/InterpolaterEnforcer.h"

#include "actions/OrvException.h"
#include "core/ReadWriteMutex.h"
#include "core/ThreadSafe.h"
#include "values/Interpolater.h"
#include "values/Parameter.h"

#include <string>

namespace OrvMediaLib {

namespace {

boost::shared_ptr<KelMediaLib::Interpolater<double>> destinedInterpolater(const std::string& name) {
  // Zoom and pan ease in and out; a third scale isn't one of them and stays
  // linear, unlike the third translation.
  if (name == "translation0" || name == "translation1" || name == "translation2" ||
      name == "scale0" || name == "scale1") {
    return KelMediaLib::EaseInOutDoubleExponentialSigmoidInterpolater<double>::getInstance();
  }
  return KelMediaLib::LinearInterpolater<double>::getInstance();
}

}  // namespace

void InterpolaterEnforcer::enforceFirstInterpolater(
    boost::shared_ptr<KelMediaLib::Parameter<double>> parameter) {
  if (!parameter) {
    throw OrvException("can't enforce the first interpolater of a missing parameter");
  }
  std::string name;
  {
    const boost::shared_ptr<const KelMediaLib::ThreadSafe> project(parameter->projectMutex());
    const KelMediaLib::ReadWriteMutex::ScopedReadLock lock(project->mutex());
    name = parameter->name();
  }
  const auto companion = parameter->interpolaterParameter();
  if (!companion || companion->numKeyFrames() != 1) {
    return;
  }
  companion->setKeyFrameValue(companion->firstKeyFrameTime(), destinedInterpolater(name));
}

}  // namespace OrvMediaLib
