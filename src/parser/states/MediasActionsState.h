#pragma once

#include "media/parser/ParserState.h"

#include <boost/shared_ptr.hpp>

namespace KelMediaLib {
class Media;
}

namespace OrvMediaLib {

class ActionBin;
class OrvProject;

/// The actions of one media in a bin: "CenterAction" and "EdgeAction"
/// elements, in order.
class MediasActionsState : public KelMediaLib::ParserState {
 public:
  MediasActionsState(KelMediaLib::Parser* parser, boost::shared_ptr<OrvProject> project,
                     boost::shared_ptr<const KelMediaLib::Media> media,
                     boost::shared_ptr<const ActionBin> bin);
  KelMediaLib::ParserState* startElement(const char* name, const char** atts) override;

 private:
  boost::shared_ptr<OrvProject> project_;
  boost::shared_ptr<const KelMediaLib::Media> media_;
  boost::shared_ptr<const ActionBin> bin_;
};

}  // namespace OrvMediaLib
