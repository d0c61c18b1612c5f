#pragma once

#include "media/parser/ParserState.h"

#include <boost/shared_ptr.hpp>

namespace KelMediaLib {
class Project;
}

namespace OrvMediaLib {

class OrvProject;

/// The root "OrvProject": the "Project" element, then the action bins. It
/// writes the projects it makes into the start state's fields.
class OrvProjectState : public KelMediaLib::ParserState {
 public:
  OrvProjectState(KelMediaLib::Parser* parser, boost::shared_ptr<KelMediaLib::Project>* project,
                  boost::shared_ptr<OrvProject>* orvProject);
  KelMediaLib::ParserState* startElement(const char* name, const char** atts) override;

 private:
  KelMediaLib::ParserState* startActionBin(const char** atts);

  boost::shared_ptr<KelMediaLib::Project>* project_;
  boost::shared_ptr<OrvProject>* orvProject_;
};

}  // namespace OrvMediaLib
