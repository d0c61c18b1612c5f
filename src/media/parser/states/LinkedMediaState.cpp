#include "media/parser/states/LinkedMediaState.h"

#include "media/commands/LinkCmd.h"
#include "media/media/Media.h"
#include "media/parser/AttributeCast.h"
#include "media/parser/NullState.h"
#include "media/parser/Parser.h"
#include "media/parser/SymbolTableImpl.h"
#include "media/project/Project.h"

#include <cstring>

namespace KelMediaLib {

LinkedMediaState::LinkedMediaState(Parser* parser, boost::shared_ptr<Project> project,
                                   boost::shared_ptr<const Media> media)
    : ParserState(parser), project_(std::move(project)), media_(std::move(media)) {}

ParserState* LinkedMediaState::startElement(const char* name, const char** atts) {
  if (std::strcmp(name, "MediaLink") != 0) {
    throwUnexpectedName(name, "Linked Media");
  }
  AttributeMap map;
  genMap("Media Link", "link", "", atts, map);
  const auto ident = static_cast<unsigned int>(attributeCast<int>(map["link"]));
  SymbolTable& symbols = parser()->symbolTable();
  if (symbols.hasSymbolForIdent(ident)) {
    project_->execute(LinkCmd::create(symbols.symbolForIdent<Media>(ident), media_));
  }
  return new NullState(parser());
}

}  // namespace KelMediaLib
