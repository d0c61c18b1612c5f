#include "parser/states/ParameterRangesState.h"

#include "actions/Action.h"
#include "actions/OrigToModified.h"
#include "actions/ParameterRange.h"
#include "core/ParserException.h"
#include "core/ValueException.h"
#include "media/effects/Effect.h"
#include "media/media/Media.h"
#include "media/parser/AttributeCast.h"
#include "media/parser/NullState.h"
#include "media/parser/Parser.h"
#include "media/parser/SymbolTableImpl.h"
#include "values/Parameter.h"

#include <cstring>
#include <iostream>

namespace OrvMediaLib {

namespace {

// The media of that ident, or else the effect; null when neither is known.
boost::shared_ptr<const KelMediaLib::Parametric> findParametric(KelMediaLib::Parser& parser,
                                                               unsigned int ident) {
  try {
    return parser.symbolTable().symbolForIdent<KelMediaLib::Media>(ident);
  } catch (const KelMediaLib::ValueException<unsigned int>&) {
  }
  try {
    return parser.symbolTable().symbolForIdent<KelMediaLib::Effect>(ident);
  } catch (const KelMediaLib::ValueException<unsigned int>&) {
  }
  return boost::shared_ptr<const KelMediaLib::Parametric>();
}

boost::shared_ptr<const KelMediaLib::KeyFrame<double>> keyFrameAt(
    const KelMediaLib::Parameter<double>& parameter, long long time) {
  const boost::shared_ptr<const KelMediaLib::KeyFrame<double>> keyFrame = parameter.keyFrame(time);
  if (!keyFrame) {
    throw KelMediaLib::ParserException("ParameterRange: parameter \"" + parameter.name() +
                                           "\" has no key frame at " + std::to_string(time),
                                       0, 0);
  }
  return keyFrame;
}

}  // namespace

ParameterRangesState::ParameterRangesState(KelMediaLib::Parser* parser,
                                           boost::shared_ptr<OrvProject> project,
                                           boost::shared_ptr<Action> action)
    : ParserState(parser), project_(std::move(project)), action_(std::move(action)) {}

KelMediaLib::ParserState* ParameterRangesState::startElement(const char* name, const char** atts) {
  if (std::strcmp(name, "ParameterRange") != 0) {
    throwUnexpectedName(name, "ParameterRangesState");
  }
  AttributeMap map;
  genMap("ParameterRange", "id parametric parameter left right", "", atts, map);
  const auto ident = KelMediaLib::attributeCast<long long>(map["parametric"]);
  const auto left = KelMediaLib::attributeCast<long long>(map["left"]);
  const auto right = KelMediaLib::attributeCast<long long>(map["right"]);
  const boost::shared_ptr<const KelMediaLib::Parametric> parametric =
      findParametric(*parser(), static_cast<unsigned int>(ident));
  if (!parametric) {
    std::cerr << "VelmoOrv: unable to recognize parametric for action range" << std::endl;
    return new KelMediaLib::NullState(parser());
  }
  const auto parameter = boost::dynamic_pointer_cast<const KelMediaLib::Parameter<double>>(
      parametric->parameterNamed(map["parameter"]));
  if (!parameter) {
    std::cerr << "VelmoOrv: unable to recognize parameter for action range" << std::endl;
    return new KelMediaLib::NullState(parser());
  }
  const auto rightKeyFrame = keyFrameAt(*parameter, right);
  const auto leftKeyFrame = keyFrameAt(*parameter, left);
  action_->addParameterRange(
      ParameterRange(parametric, parameter, leftKeyFrame, rightKeyFrame, OrigToModified()));
  return new KelMediaLib::NullState(parser());
}

}  // namespace OrvMediaLib
