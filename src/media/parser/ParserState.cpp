#include "media/parser/ParserState.h"

#include "core/ParserException.h"

#include <algorithm>
#include <sstream>

namespace KelMediaLib {

ParserState::ParserState(Parser* parser) : parser_(parser) {}

ParserState::~ParserState() = default;

void ParserState::endElement(const char*) {}

void ParserState::genMap(const std::string& element, const std::string& required,
                         const std::string& optional, const char** atts, AttributeMap& map) {
  const std::vector<std::string> requiredNames = parseAttrs(required);
  const std::vector<std::string> optionalNames = parseAttrs(optional);
  const auto listed = [](const std::vector<std::string>& names, const std::string& name) {
    return std::find(names.begin(), names.end(), name) != names.end();
  };
  std::size_t requiredSeen = 0;
  for (const char** attribute = atts; attribute && *attribute; attribute += 2) {
    const std::string name = attribute[0];
    if (listed(requiredNames, name)) {
      map[name] = attribute[1];
      ++requiredSeen;
    } else if (listed(optionalNames, name)) {
      map[name] = attribute[1];
    } else {
      throw ParserException("Unexpected " + element + " attribute \"" + name + "\".", 0, 0);
    }
  }
  if (requiredNames.size() > requiredSeen) {
    throw ParserException(element + " missing attributes.", 0, 0);
  }
}

std::vector<std::string> ParserState::parseAttrs(const std::string& list) {
  std::istringstream words(list);
  std::vector<std::string> result;
  std::string word;
  while (words >> word) {
    result.push_back(word);
  }
  return result;
}

void ParserState::throwUnexpectedName(const std::string& name, const std::string& state) {
  throw ParserException("Unexpected name \"" + name + "\" in " + state, 0, 0);
}

}  // namespace KelMediaLib
