#include "parser/states/ActionState.h"

#include "actions/Action.h"
#include "parser/states/ParameterRangesState.h"
#include "project/OrvProject.h"

#include <cstring>

namespace OrvMediaLib {

ActionState::ActionState(KelMediaLib::Parser* parser, boost::shared_ptr<OrvProject> project,
                         boost::shared_ptr<Action> action, boost::shared_ptr<const ActionBin> bin)
    : ParserState(parser), project_(std::move(project)), action_(std::move(action)),
      bin_(std::move(bin)) {}

KelMediaLib::ParserState* ActionState::startElement(const char* name, const char**) {
  if (std::strcmp(name, "ParameterRanges") != 0) {
    throwUnexpectedName(name, "ActionState");
  }
  return new ParameterRangesState(parser(), project_, action_);
}

void ActionState::endElement(const char*) { project_->parserAddAction(bin_, action_); }

}  // namespace OrvMediaLib
