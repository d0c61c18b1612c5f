#pragma once

#include "media/parser/ParserState.h"

#include <boost/shared_ptr.hpp>

namespace KelMediaLib {

class Project;

/// The "Timeline": its mixers, each made with the command an application
/// uses (at size 0 until its "Attributes" are read), and their tracks in
/// document order.
class TimelineState : public ParserState {
 public:
  TimelineState(Parser* parser, boost::shared_ptr<Project> project);
  ParserState* startElement(const char* name, const char** atts) override;

 private:
  boost::shared_ptr<Project> project_;
};

}  // namespace KelMediaLib
