#pragma once

#include "media/parser/ParserState.h"

#include <boost/shared_ptr.hpp>

namespace OrvMediaLib {

class ActionBin;
class OrvProject;

/// An "ActionBin": a "MediasActions" element per media with actions.
class ActionBinState : public KelMediaLib::ParserState {
 public:
  ActionBinState(KelMediaLib::Parser* parser, boost::shared_ptr<OrvProject> project,
                 boost::shared_ptr<const ActionBin> bin);
  KelMediaLib::ParserState* startElement(const char* name, const char** atts) override;

 private:
  boost::shared_ptr<OrvProject> project_;
  boost::shared_ptr<const ActionBin> bin_;
};

}  // namespace OrvMediaLib
