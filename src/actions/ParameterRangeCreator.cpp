#include "actions/ParameterRangeCreator.h"

#include "actions/InterpolaterRange.h"
#include "actions/Modifier.h"
#include "actions/OrvException.h"
#include "actions/ParameterTime.h"
#include "media/media/Media.h"
#include "values/Interpolater.h"
#include "values/Parameter.h"
#include "values/ParameterInterface.h"
#include "values/Parametric.h"

#include <boost/make_shared.hpp>
#include <boost/pointer_cast.hpp>

#include <sstream>
#include <string>

namespace OrvMediaLib {

using KelMediaLib::Interpolater;
using KelMediaLib::Parameter;
using KelMediaLib::Parametric;
using KelMediaLib::Range;

namespace {

long long keyFrameTime(const Parametric& parametric, long long time) {
  return truncateTime(parametric.toParameterTime(static_cast<double>(time)));
}

// A companion-less parameter can't take an interpolater: the name is then
// ignored, without a failure.
void addInterpolater(const Parametric& parametric,
                     const boost::shared_ptr<const Parameter<double>>& parameter,
                     const std::string& name, long long time, ParameterRange& range) {
  const boost::shared_ptr<InterpolaterRange::InterpolaterParameter> companion =
      parameter->interpolaterParameter();
  if (!companion) {
    return;
  }
  boost::shared_ptr<Interpolater<double>> interpolater;
  std::istringstream in(name);
  in >> interpolater;
  const boost::shared_ptr<const InterpolaterRange::InterpolaterKeyFrame> keyFrame =
      boost::make_shared<InterpolaterRange::InterpolaterKeyFrame>(keyFrameTime(parametric, time),
                                                                  interpolater);
  range.setInterpolater(boost::make_shared<InterpolaterRange>(companion, keyFrame));
}

}  // namespace

ParameterRange ParameterRangeCreator::createParamRange(
    boost::shared_ptr<const KelMediaLib::Media> media,
    const ActionDescription::RangeDescription& rangeDescription, const Range<long long>& range) {
  if (!media) {
    throw OrvException("attempting to create a parameter range without a media");
  }
  const boost::shared_ptr<const Parametric> parametric = media;
  const boost::shared_ptr<const Parameter<double>> parameter =
      boost::dynamic_pointer_cast<const Parameter<double>>(
          parametric->parameterNamed(rangeDescription.parameterName()));

  // Both values come from the state at the start of the range. A missing
  // parameter reads as NaN here and is reported with the first key frame.
  const long long start = keyFrameTime(*parametric, range.start);
  const Modifier& modifier = rangeDescription.modifier();
  const double left = modifier.calcLeftValue(parameter, rangeDescription.transform(), start,
                                             rangeDescription.value());
  const double right = modifier.calcRightValue(parameter, rangeDescription.transform(), start,
                                               rangeDescription.value());

  ParameterRange result(parametric, parameter,
                        createKeyFrameAtTime(parametric, parameter, range.start, left),
                        createKeyFrameAtTime(parametric, parameter, range.end(), right), modifier);
  if (!rangeDescription.interpolater().empty()) {
    addInterpolater(*parametric, parameter, rangeDescription.interpolater(), range.start, result);
  }
  return result;
}

boost::shared_ptr<const KelMediaLib::KeyFrame<double>> ParameterRangeCreator::createKeyFrameAtTime(
    boost::shared_ptr<const Parametric> parametric,
    boost::shared_ptr<const Parameter<double>> parameter, long long time, double value) {
  if (!parameter) {
    throw OrvException("attempting to create an action on a media without specified parameter");
  }
  if (!parametric) {
    throw OrvException("attempting to create a key frame without a parametric");
  }
  return boost::make_shared<KelMediaLib::KeyFrame<double>>(keyFrameTime(*parametric, time), value);
}

}  // namespace OrvMediaLib
