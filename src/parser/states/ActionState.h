#pragma once

#include "media/parser/ParserState.h"

#include <boost/shared_ptr.hpp>

namespace OrvMediaLib {

class Action;
class ActionBin;
class OrvProject;

/// One action: its "ParameterRanges"; at its end the action, ranges in
/// place, goes into the bin through `parserAddAction`.
class ActionState : public KelMediaLib::ParserState {
 public:
  ActionState(KelMediaLib::Parser* parser, boost::shared_ptr<OrvProject> project,
              boost::shared_ptr<Action> action, boost::shared_ptr<const ActionBin> bin);
  KelMediaLib::ParserState* startElement(const char* name, const char** atts) override;
  void endElement(const char* name) override;

 private:
  boost::shared_ptr<OrvProject> project_;
  boost::shared_ptr<Action> action_;
  boost::shared_ptr<const ActionBin> bin_;
};

}  // namespace OrvMediaLib
