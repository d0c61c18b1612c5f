#include "core/XMLText.h"

#include <charconv>
#include <ostream>

namespace KelMediaLib {

namespace {

template <class T>
void writeChars(std::ostream& out, T value) {
  char buffer[64];
  const std::to_chars_result result = std::to_chars(buffer, buffer + sizeof buffer, value);
  out.write(buffer, result.ptr - buffer);
}

// Line breaks and tabs are escaped too: an attribute value would otherwise
// come back with blanks in their place.
const char* escapeOf(char c) {
  switch (c) {
    case '&': return "&amp;";
    case '<': return "&lt;";
    case '>': return "&gt;";
    case '"': return "&quot;";
    case '\n': return "&#10;";
    case '\r': return "&#13;";
    case '\t': return "&#9;";
    default: return nullptr;
  }
}

}  // namespace

void writeXMLValue(std::ostream& out, double value) { writeChars(out, value); }
void writeXMLValue(std::ostream& out, float value) { writeChars(out, value); }
void writeXMLValue(std::ostream& out, int value) { writeChars(out, value); }
void writeXMLValue(std::ostream& out, unsigned int value) { writeChars(out, value); }
void writeXMLValue(std::ostream& out, long long value) { writeChars(out, value); }
void writeXMLValue(std::ostream& out, unsigned long value) { writeChars(out, value); }

void writeXMLValue(std::ostream& out, const std::string& value) {
  std::string::size_type plainFrom = 0;
  for (std::string::size_type i = 0; i < value.size(); ++i) {
    if (const char* replacement = escapeOf(value[i])) {
      out.write(value.data() + plainFrom, i - plainFrom);
      out << replacement;
      plainFrom = i + 1;
    }
  }
  out.write(value.data() + plainFrom, value.size() - plainFrom);
}

std::string xmlEscape(const std::string& text) {
  std::string result;
  result.reserve(text.size());
  for (char c : text) {
    if (const char* replacement = escapeOf(c)) {
      result += replacement;
    } else {
      result += c;
    }
  }
  return result;
}

}  // namespace KelMediaLib
