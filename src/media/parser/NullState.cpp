#include "media/parser/NullState.h"

namespace KelMediaLib {

NullState::NullState(Parser* parser) : ParserState(parser) {}

ParserState* NullState::startElement(const char*, const char**) { return new NullState(parser()); }

}  // namespace KelMediaLib
