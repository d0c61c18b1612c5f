#pragma once

#include "media/parser/StartState.h"

#include <boost/shared_ptr.hpp>

namespace OrvMediaLib {

class OrvProject;

/// Start state of a file of this library: its root is "OrvProject".
class OrvStartState : public KelMediaLib::StartState {
 public:
  explicit OrvStartState(KelMediaLib::Parser* parser);
  KelMediaLib::ParserState* startElement(const char* name, const char** atts) override;
  /// The media model's project inside the editing model's one.
  boost::shared_ptr<KelMediaLib::Project> project() const override { return project_; }
  /// The project read; null until the "Project" element.
  boost::shared_ptr<OrvProject> orvproject() const { return orvProject_; }

 private:
  boost::shared_ptr<KelMediaLib::Project> project_;
  boost::shared_ptr<OrvProject> orvProject_;
};

}  // namespace OrvMediaLib
