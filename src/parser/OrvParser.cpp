#include "parser/OrvParser.h"

#include "media/project/InternalProject.h"
#include "parser/states/OrvStartState.h"
#include "project/OrvProject.h"

namespace OrvMediaLib {

OrvParser::OrvParser(KelMediaLib::MissingFileHandler* missingFileHandler,
                     KelMediaLib::ChangedFileHandler* changedFileHandler)
    : parser_(new KelMediaLib::Parser(missingFileHandler, changedFileHandler)),
      startState_(new OrvStartState(parser_.get())) {
  parser_->setStartState(startState_);
}

OrvParser::~OrvParser() = default;

boost::shared_ptr<OrvProject> OrvParser::parseProject(std::string path) {
  parser_->parseProject(path);
  const boost::shared_ptr<OrvProject> project = finish();
  postParsingOperations(project);
  return project;
}

boost::shared_ptr<OrvProject> OrvParser::parseProject(std::istream& in) {
  parser_->parseProject(in);
  return finish();
}

void OrvParser::setPathPrefix(const std::string& prefix) { parser_->setPathPrefix(prefix); }

std::string OrvParser::pathPrefix() const { return parser_->pathPrefix(); }

void OrvParser::setProgressCallback(KelMediaLib::Parser::ProgressCallback callback) {
  parser_->setProgressCallback(std::move(callback));
}

void OrvParser::postParsingOperations(boost::shared_ptr<OrvProject>) {}

boost::shared_ptr<OrvProject> OrvParser::finish() {
  // Loading built the model through commands; none of them is an edit the
  // user could undo.
  const auto inner =
      boost::dynamic_pointer_cast<KelMediaLib::InternalProject>(startState_->project());
  if (inner) {
    inner->clearHistory();
  }
  return startState_->orvproject();
}

}  // namespace OrvMediaLib
