#include "media/parser/states/AttributesState.h"

#include "core/ParserException.h"
#include "media/parser/NullState.h"

#include <cstring>

namespace KelMediaLib {

AttributesState::AttributesState(Parser* parser, Setters setters)
    : ParserState(parser), setters_(std::move(setters)) {}

ParserState* AttributesState::startElement(const char* name, const char** atts) {
  if (std::strcmp(name, "Attribute") != 0) {
    throwUnexpectedName(name, "Attributes");
  }
  AttributeMap map;
  genMap("Attribute", "id value name", "", atts, map);
  const std::string& attributeName = map["name"];
  for (const auto& setter : setters_) {
    if (setter.first == attributeName) {
      setter.second(map["value"]);
      return new NullState(parser());
    }
  }
  throw ParserException("Unexpected attribute \"" + attributeName + "\" in Attributes", 0, 0);
}

}  // namespace KelMediaLib
