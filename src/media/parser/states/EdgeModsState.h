#pragma once

#include "media/parser/ParserState.h"

#include <boost/shared_ptr.hpp>

namespace KelMediaLib {

class Media;
class Project;

/// "LeftEdgeMods" or "RightEdgeMods" of a media: the edge's length, set
/// when the element opens, then the edge modifications of each "EdgeMod",
/// whose "parameter" must be a parameter of doubles read before.
class EdgeModsState : public ParserState {
 public:
  enum Side { Left = 0, Right = 1 };

  /// Checks the attributes, executes the move of the edge to "length" and
  /// returns the state of the element.
  static ParserState* create(const char** atts, boost::shared_ptr<Project> project,
                             boost::shared_ptr<const Media> media, Parser* parser, Side side);
  ParserState* startElement(const char* name, const char** atts) override;

 private:
  EdgeModsState(Parser* parser, boost::shared_ptr<Project> project,
                boost::shared_ptr<const Media> media, Side side);

  boost::shared_ptr<Project> project_;
  boost::shared_ptr<const Media> media_;
  Side side_;
};

}  // namespace KelMediaLib
