#include "parser/states/ActionBinState.h"

#include "media/media/Media.h"
#include "media/parser/AttributeCast.h"
#include "media/parser/Parser.h"
#include "media/parser/SymbolTableImpl.h"
#include "parser/states/MediasActionsState.h"

#include <cstring>

namespace OrvMediaLib {

ActionBinState::ActionBinState(KelMediaLib::Parser* parser, boost::shared_ptr<OrvProject> project,
                               boost::shared_ptr<const ActionBin> bin)
    : ParserState(parser), project_(std::move(project)), bin_(std::move(bin)) {}

KelMediaLib::ParserState* ActionBinState::startElement(const char* name, const char** atts) {
  if (std::strcmp(name, "MediasActions") != 0) {
    throwUnexpectedName(name, "ActionBinState");
  }
  AttributeMap map;
  genMap("MediasActionsState", "media", "", atts, map);
  const auto ident = static_cast<unsigned int>(KelMediaLib::attributeCast<int>(map["media"]));
  const boost::shared_ptr<const KelMediaLib::Media> media =
      parser()->symbolTable().symbolForIdent<KelMediaLib::Media>(ident);
  return new MediasActionsState(parser(), project_, media, bin_);
}

}  // namespace OrvMediaLib
