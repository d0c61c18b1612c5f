#include "parser/states/OrvProjectState.h"

#include "core/ParserException.h"
#include "media/parser/StartStateImpl.h"
#include "media/parser/states/ProjectState.h"
#include "parser/states/ActionBinState.h"
#include "project/InternalOrvProject.h"

#include <cstring>

namespace OrvMediaLib {

OrvProjectState::OrvProjectState(KelMediaLib::Parser* parser,
                                 boost::shared_ptr<KelMediaLib::Project>* project,
                                 boost::shared_ptr<OrvProject>* orvProject)
    : ParserState(parser), project_(project), orvProject_(orvProject) {}

KelMediaLib::ParserState* OrvProjectState::startElement(const char* name, const char** atts) {
  if (std::strcmp(name, "Project") == 0) {
    *project_ = KelMediaLib::StartStateImpl::createProject(atts);
    *orvProject_ = InternalOrvProject::create(*project_);
    // The media part is built on the inner project; its commands still come
    // back through the editing model's project, its command handler.
    return new KelMediaLib::ProjectState(parser(), *project_);
  }
  if (std::strcmp(name, "ActionBin") == 0) {
    return startActionBin(atts);
  }
  throwUnexpectedName(name, "OrvProjectState");
}

KelMediaLib::ParserState* OrvProjectState::startActionBin(const char** atts) {
  AttributeMap map;
  genMap("ActionBinState", "id name", "", atts, map);
  const std::string& name = map["name"];
  const boost::shared_ptr<OrvProject> project = *orvProject_;
  if (!project) {
    throw KelMediaLib::ParserException("ActionBin before the Project in OrvProject", 0, 0);
  }
  boost::shared_ptr<const ActionBin> bin;
  if (name == "actionBin") {
    bin = project->actionBin();
  } else if (name == "zdActionBin") {
    bin = project->zdActionBin();
  } else if (name == "audioActionBin") {
    bin = project->audioActionBin();
  } else {
    throw KelMediaLib::ParserException("unexpected ActionBin name in OrvProject", 0, 0);
  }
  return new ActionBinState(parser(), project, bin);
}

}  // namespace OrvMediaLib
