#pragma once

#include "media/parser/Parser.h"

#include <boost/shared_ptr.hpp>

#include <iosfwd>
#include <memory>
#include <string>

namespace OrvMediaLib {

class OrvProject;
class OrvStartState;

/// Reads a project file of this library: the media model's "Project" and
/// the action bins behind it, under the root "OrvProject". The media part is
/// built by executing the commands a user's edit executes; the actions
/// arrive through `OrvProject::parserAddAction`. After a successful load the
/// history is empty and marked saved: loading isn't an edit.
///
/// Failures are those of `KelMediaLib::Parser`; a failed load hands out no
/// project.
class OrvParser {
 public:
  /// Either handler may be null; neither is owned (see `Parser`).
  OrvParser(KelMediaLib::MissingFileHandler* missingFileHandler,
            KelMediaLib::ChangedFileHandler* changedFileHandler);
  virtual ~OrvParser();
  OrvParser(const OrvParser&) = delete;
  OrvParser& operator=(const OrvParser&) = delete;

  /// Reads the file at `path`. Null when the root holds no "Project".
  boost::shared_ptr<OrvProject> parseProject(std::string path);
  /// Reads the document from the stream. Null when the root holds no "Project".
  boost::shared_ptr<OrvProject> parseProject(std::istream& in);

  /// Folder against which source paths are resolved first.
  void setPathPrefix(const std::string& prefix);
  std::string pathPrefix() const;
  /// See `Parser::setProgressCallback`.
  void setProgressCallback(KelMediaLib::Parser::ProgressCallback callback);

  /// Runs after a load from a path; does nothing today, kept for
  /// applications that hook in there.
  virtual void postParsingOperations(boost::shared_ptr<OrvProject> project);

 private:
  boost::shared_ptr<OrvProject> finish();

  std::unique_ptr<KelMediaLib::Parser> parser_;
  boost::shared_ptr<OrvStartState> startState_;
};

}  // namespace OrvMediaLib
