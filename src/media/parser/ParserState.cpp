#include "media/parser/ParserState.h"

#include "core/ParserException.h"

#include <cctype>
#include <cstring>
#include <sstream>
#include <utility>

namespace KelMediaLib {

ParserState::ParserState(Parser* parser) : parser_(parser) {}

ParserState::~ParserState() = default;

void ParserState::endElement(const char*) {}

namespace {

// Where the next blank-separated word of `list` at or after `at` begins and
// ends; begin == end when there is none. Blanks are those a stream skips.
std::pair<std::size_t, std::size_t> nextWord(const std::string& list, std::size_t at) {
  const auto blank = [](char c) { return std::isspace(static_cast<unsigned char>(c)) != 0; };
  while (at < list.size() && blank(list[at])) {
    ++at;
  }
  std::size_t end = at;
  while (end < list.size() && !blank(list[end])) {
    ++end;
  }
  return {at, end};
}

// Whether `name` is one of the words of `list`. Lists are a few words long
// and asked once an attribute, so they are searched in place: splitting
// them into strings cost more than the rest of reading an element.
bool listed(const std::string& list, const char* name, std::size_t length) {
  for (auto word = nextWord(list, 0); word.first < word.second;
       word = nextWord(list, word.second)) {
    if (word.second - word.first == length && list.compare(word.first, length, name) == 0) {
      return true;
    }
  }
  return false;
}

std::size_t countWords(const std::string& list) {
  std::size_t count = 0;
  for (auto word = nextWord(list, 0); word.first < word.second;
       word = nextWord(list, word.second)) {
    ++count;
  }
  return count;
}

}  // namespace

void ParserState::genMap(const std::string& element, const std::string& required,
                         const std::string& optional, const char** atts, AttributeMap& map) {
  std::size_t requiredSeen = 0;
  for (const char** attribute = atts; attribute && *attribute; attribute += 2) {
    const std::size_t length = std::strlen(attribute[0]);
    if (listed(required, attribute[0], length)) {
      map[attribute[0]] = attribute[1];
      ++requiredSeen;
    } else if (listed(optional, attribute[0], length)) {
      map[attribute[0]] = attribute[1];
    } else {
      throw ParserException("Unexpected " + element + " attribute \"" + attribute[0] + "\".", 0, 0);
    }
  }
  if (countWords(required) > requiredSeen) {
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
