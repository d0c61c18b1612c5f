#pragma once

#include "media/parser/ParserState.h"

#include <boost/shared_ptr.hpp>

namespace KelMediaLib {

class Project;
class Track;

/// A track's "Medias": each media element makes its media, sets it to its
/// size, enters it in the symbol table and puts it on the track with
/// `AddMediaCmd`; the media's children are then read by a `MediaState`.
class MediasState : public ParserState {
 public:
  /// `audio` tells an audio track's block from a visual track's.
  MediasState(Parser* parser, boost::shared_ptr<Project> project,
              boost::shared_ptr<const Track> track, bool audio);
  ParserState* startElement(const char* name, const char** atts) override;

 private:
  ParserState* startFileMedia(const char* name, const char** atts);
  ParserState* startIMFile(const char** atts);
  ParserState* startTextBox(const char** atts);
  ParserState* startCallout(const char** atts);
  ParserState* startImageTransition(const char** atts);

  boost::shared_ptr<Project> project_;
  boost::shared_ptr<const Track> track_;
  bool audio_;
};

}  // namespace KelMediaLib
