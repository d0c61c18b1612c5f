#include "media/parser/StartStateImpl.h"

#include "media/parser/AttributeCast.h"
#include "media/parser/states/ProjectState.h"
#include "media/project/Project.h"

#include <cstring>

namespace KelMediaLib {

StartStateImpl::StartStateImpl(Parser* parser) : StartState(parser) {}

ParserState* StartStateImpl::startElement(const char* name, const char** atts) {
  if (std::strcmp(name, "Project") != 0) {
    throwUnexpectedName(name, "StartStateImpl");
  }
  project_ = createProject(atts);
  return new ProjectState(parser(), project_);
}

boost::shared_ptr<Project> StartStateImpl::createProject(const char** atts) {
  AttributeMap map;
  genMap("Project", "editRate version id", "", atts, map);
  return Project::create(attributeCast<EditRate>(map["editRate"]));
}

}  // namespace KelMediaLib
