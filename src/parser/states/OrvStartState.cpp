#include "parser/states/OrvStartState.h"

#include "parser/states/OrvProjectState.h"

#include <cstring>

namespace OrvMediaLib {

OrvStartState::OrvStartState(KelMediaLib::Parser* parser) : StartState(parser) {}

KelMediaLib::ParserState* OrvStartState::startElement(const char* name, const char**) {
  if (std::strcmp(name, "OrvProject") != 0) {
    throwUnexpectedName(name, "OrvStartState");
  }
  return new OrvProjectState(parser(), &project_, &orvProject_);
}

}  // namespace OrvMediaLib
