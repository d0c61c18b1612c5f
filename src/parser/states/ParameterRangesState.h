#pragma once

#include "media/parser/ParserState.h"

#include <boost/shared_ptr.hpp>

namespace OrvMediaLib {

class Action;
class OrvProject;

/// The ranges of an action. Each "ParameterRange" names two key frames that
/// the media part of the file put into the parameter; a range whose
/// parametric or parameter isn't known is dropped with a line on standard
/// error, and the load goes on. A key frame missing at either time ends it.
class ParameterRangesState : public KelMediaLib::ParserState {
 public:
  ParameterRangesState(KelMediaLib::Parser* parser, boost::shared_ptr<OrvProject> project,
                       boost::shared_ptr<Action> action);
  KelMediaLib::ParserState* startElement(const char* name, const char** atts) override;

 private:
  boost::shared_ptr<OrvProject> project_;
  boost::shared_ptr<Action> action_;
};

}  // namespace OrvMediaLib
