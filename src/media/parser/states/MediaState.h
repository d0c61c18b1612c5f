#pragma once

#include "media/parser/ParserState.h"

#include <boost/shared_ptr.hpp>

namespace KelMediaLib {

class Media;
class Project;

/// The children of a media element, once the media is on its track:
/// parameters, attributes, transformer, links, screen metadata, edges and
/// effects, as far as the kind has them. Each kind refuses the children it
/// can't have, with its own word in the message; a text box skips them.
class MediaState : public ParserState {
 public:
  enum Kind { VMFileKind, AMFileKind, IMFileKind, CalloutKind, TextBoxKind, ImageTransitionKind };

  MediaState(Parser* parser, boost::shared_ptr<Project> project,
             boost::shared_ptr<const Media> media, Kind kind);
  ParserState* startElement(const char* name, const char** atts) override;
  /// The idents of the media's parameters are forgotten: only the media's
  /// own edge mods name them.
  void endElement(const char* name) override;

 private:
  ParserState* startParameters();
  ParserState* startAttributes();

  boost::shared_ptr<Project> project_;
  boost::shared_ptr<const Media> media_;
  Kind kind_;
};

}  // namespace KelMediaLib
