#pragma once

#include "media/parser/ParserState.h"

#include <boost/shared_ptr.hpp>

namespace KelMediaLib {

class Project;

/// The "Project" element: its source bin and timeline; "Author", "Comment"
/// and "System" are skipped.
class ProjectState : public ParserState {
 public:
  ProjectState(Parser* parser, boost::shared_ptr<Project> project);
  ParserState* startElement(const char* name, const char** atts) override;

 private:
  boost::shared_ptr<Project> project_;
};

}  // namespace KelMediaLib
