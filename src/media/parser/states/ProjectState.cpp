#include "media/parser/states/ProjectState.h"

#include "media/parser/NullState.h"
#include "media/parser/states/SourceBinState.h"
#include "media/parser/states/TimelineState.h"

#include <cstring>

namespace KelMediaLib {

ProjectState::ProjectState(Parser* parser, boost::shared_ptr<Project> project)
    : ParserState(parser), project_(std::move(project)) {}

ParserState* ProjectState::startElement(const char* name, const char**) {
  if (std::strcmp(name, "SourceBin") == 0) {
    return new SourceBinState(parser(), project_);
  }
  if (std::strcmp(name, "Timeline") == 0) {
    return new TimelineState(parser(), project_);
  }
  if (std::strcmp(name, "Author") == 0 || std::strcmp(name, "Comment") == 0 ||
      std::strcmp(name, "System") == 0) {
    return new NullState(parser());
  }
  throwUnexpectedName(name, "Project");
}

}  // namespace KelMediaLib
