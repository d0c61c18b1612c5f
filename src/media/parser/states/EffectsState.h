#pragma once

#include "media/parser/ParserState.h"

#include <boost/shared_ptr.hpp>

namespace KelMediaLib {

class Effectable;
class Project;

/// An "Effects" block: each "GenericEffect" is created, added with
/// `AddEffectCmd` and entered in the symbol table, then its parameters read.
class EffectsState : public ParserState {
 public:
  EffectsState(Parser* parser, boost::shared_ptr<Project> project,
               boost::shared_ptr<const Effectable> effectable);
  ParserState* startElement(const char* name, const char** atts) override;

 private:
  boost::shared_ptr<Project> project_;
  boost::shared_ptr<const Effectable> effectable_;
};

}  // namespace KelMediaLib
