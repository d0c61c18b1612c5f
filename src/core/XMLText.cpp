#include "core/XMLText.h"

#include <charconv>
#include <ostream>
#include <string>

namespace KelMediaLib {

namespace {

template <class T>
void writeChars(std::ostream& out, T value) {
  char buffer[64];
  const std::to_chars_result result = std::to_chars(buffer, buffer + sizeof buffer, value);
  writeRaw(out, buffer, static_cast<std::size_t>(result.ptr - buffer));
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

// U+FFFD, written in place of what an XML document can't hold at all.
const char kReplacement[] = "\xEF\xBF\xBD";

// Length of the well-formed UTF-8 sequence of a character XML allows that
// starts at `text[i]`, or 0.
std::size_t validSequence(const std::string& text, std::size_t i) {
  const auto byte = [&](std::size_t k) { return static_cast<unsigned char>(text[k]); };
  const unsigned char lead = byte(i);
  if (lead < 0x80) {
    return (lead >= 0x20 || lead == '\t' || lead == '\n' || lead == '\r') ? 1 : 0;
  }
  std::size_t length;
  unsigned long code;
  if (lead >= 0xC2 && lead <= 0xDF) {
    length = 2;
    code = lead & 0x1F;
  } else if (lead >= 0xE0 && lead <= 0xEF) {
    length = 3;
    code = lead & 0x0F;
  } else if (lead >= 0xF0 && lead <= 0xF4) {
    length = 4;
    code = lead & 0x07;
  } else {
    return 0;
  }
  if (i + length > text.size()) {
    return 0;
  }
  for (std::size_t k = 1; k < length; ++k) {
    if ((byte(i + k) & 0xC0) != 0x80) {
      return 0;
    }
    code = (code << 6) | (byte(i + k) & 0x3F);
  }
  const bool overlong = (length == 3 && code < 0x800) || (length == 4 && code < 0x10000);
  const bool surrogate = code >= 0xD800 && code <= 0xDFFF;
  if (overlong || surrogate || code > 0x10FFFF || code == 0xFFFE || code == 0xFFFF) {
    return 0;
  }
  return length;
}

// Writes `text` escaped for a double-quoted attribute through `append(data,
// size)`. Bytes that aren't well-formed UTF-8, and control characters that XML
// forbids even as references, become U+FFFD: the document must stay readable.
template <class Append>
void escapeText(const std::string& text, Append append) {
  std::size_t plainFrom = 0;
  std::size_t i = 0;
  while (i < text.size()) {
    if (const char* replacement = escapeOf(text[i])) {
      append(text.data() + plainFrom, i - plainFrom);
      append(replacement, std::char_traits<char>::length(replacement));
      plainFrom = ++i;
      continue;
    }
    const std::size_t length = validSequence(text, i);
    if (length == 0) {
      append(text.data() + plainFrom, i - plainFrom);
      append(kReplacement, sizeof kReplacement - 1);
      plainFrom = ++i;
      continue;
    }
    i += length;
  }
  append(text.data() + plainFrom, text.size() - plainFrom);
}

}  // namespace

void writeXMLValue(std::ostream& out, double value) { writeChars(out, value); }
void writeXMLValue(std::ostream& out, float value) { writeChars(out, value); }
void writeXMLValue(std::ostream& out, int value) { writeChars(out, value); }
void writeXMLValue(std::ostream& out, unsigned int value) { writeChars(out, value); }
void writeXMLValue(std::ostream& out, long long value) { writeChars(out, value); }
void writeXMLValue(std::ostream& out, unsigned long value) { writeChars(out, value); }

void writeXMLValue(std::ostream& out, const std::string& value) {
  escapeText(value, [&out](const char* data, std::size_t size) { writeRaw(out, data, size); });
}

namespace {

// Two blanks a level, through `write(data, size)`.
template <class Write>
void writeBlanks(int depth, Write write) {
  static const char blanks[] = "                                                                ";
  std::size_t left = depth > 0 ? static_cast<std::size_t>(depth) * 2 : 0;
  while (left > 0) {
    const std::size_t now = left < sizeof blanks - 1 ? left : sizeof blanks - 1;
    write(blanks, now);
    left -= now;
  }
}

}  // namespace

void writeIndent(std::ostream& out, int depth) {
  writeBlanks(depth, [&out](const char* data, std::size_t size) { writeRaw(out, data, size); });
}

void XMLLine::indent(int depth) {
  writeBlanks(depth, [this](const char* data, std::size_t size) { raw(data, size); });
}

std::string xmlEscape(const std::string& text) {
  std::string result;
  result.reserve(text.size());
  escapeText(text, [&result](const char* data, std::size_t size) { result.append(data, size); });
  return result;
}

}  // namespace KelMediaLib
