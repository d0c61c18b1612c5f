#pragma once

#include "media/parser/ParserState.h"

#include <boost/shared_ptr.hpp>

namespace KelMediaLib {

class Media;
class Project;

/// A media's "LinkedMedia". A link is written on both its media: the one
/// read first finds the other unknown and skips it, the later one makes the
/// link with `LinkCmd`.
class LinkedMediaState : public ParserState {
 public:
  LinkedMediaState(Parser* parser, boost::shared_ptr<Project> project,
                   boost::shared_ptr<const Media> media);
  ParserState* startElement(const char* name, const char** atts) override;

 private:
  boost::shared_ptr<Project> project_;
  boost::shared_ptr<const Media> media_;
};

}  // namespace KelMediaLib
