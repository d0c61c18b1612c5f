#pragma once

#include "media/parser/StartState.h"

namespace KelMediaLib {

/// Start state of a document of the media model alone: its root is "Project".
class StartStateImpl : public StartState {
 public:
  explicit StartStateImpl(Parser* parser);
  ParserState* startElement(const char* name, const char** atts) override;
  boost::shared_ptr<Project> project() const override { return project_; }

  /// Checks the "Project" element's attributes and makes the project of its
  /// edit rate. Shared with start states of documents that wrap a project.
  static boost::shared_ptr<Project> createProject(const char** atts);

 private:
  boost::shared_ptr<Project> project_;
};

}  // namespace KelMediaLib
