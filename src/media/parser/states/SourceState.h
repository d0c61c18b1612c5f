#pragma once

#include "media/parser/ParserState.h"

#include <boost/shared_ptr.hpp>

#include <string>

namespace KelMediaLib {

class MediaFileStats;
class Project;

/// A "Source" element. Its "SourceTrack" children fill the statistics the
/// file stored; at its end the file is looked for (under the parser's path
/// prefix first), the application's handlers are asked about a missing or
/// changed file, and the file is loaded with `LoadSourceCmd`.
class SourceState : public ParserState {
 public:
  SourceState(Parser* parser, boost::shared_ptr<Project> project, const std::string& src,
              const std::string& ident, const std::string& rect, const std::string& lastMod);
  ParserState* startElement(const char* name, const char** atts) override;
  void endElement(const char* name) override;

  /// The prefix joined with `src` when a file is there, else `src` as written.
  static std::string constructPath(const std::string& src, const Parser& parser);

 private:
  void loadOnlineSource(const std::string& path);

  boost::shared_ptr<Project> project_;
  boost::shared_ptr<MediaFileStats> storedStats_;
  std::string path_;
  std::string ident_;
  std::string lastMod_;
};

}  // namespace KelMediaLib
