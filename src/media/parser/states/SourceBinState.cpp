#include "media/parser/states/SourceBinState.h"

#include "media/parser/states/SourceState.h"

#include <cstring>

namespace KelMediaLib {

SourceBinState::SourceBinState(Parser* parser, boost::shared_ptr<Project> project)
    : ParserState(parser), project_(std::move(project)) {}

ParserState* SourceBinState::startElement(const char* name, const char** atts) {
  if (std::strcmp(name, "Source") != 0) {
    throwUnexpectedName(name, "SourceBin");
  }
  AttributeMap map;
  genMap("Source", "id src lastMod rect", "", atts, map);
  return new SourceState(parser(), project_, map["src"], map["id"], map["rect"], map["lastMod"]);
}

}  // namespace KelMediaLib
