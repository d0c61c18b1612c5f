#pragma once

#include <cstddef>
#include <ostream>
#include <streambuf>
#include <string>

namespace KelMediaLib {

/// Text forms of the scalar values of a project file. Floating point numbers
/// are written in the shortest form that reads back to the same bits.
void writeXMLValue(std::ostream& out, double value);
void writeXMLValue(std::ostream& out, float value);
void writeXMLValue(std::ostream& out, int value);
void writeXMLValue(std::ostream& out, unsigned int value);
void writeXMLValue(std::ostream& out, long long value);
void writeXMLValue(std::ostream& out, unsigned long value);
/// Writes the string escaped for use inside a double-quoted attribute.
void writeXMLValue(std::ostream& out, const std::string& value);

/// Escapes &, <, >, " and the line breaks and tabs that an attribute would
/// otherwise turn into blanks, so that the text reads back unchanged. Bytes
/// that aren't well-formed UTF-8, and control characters that no XML document
/// can hold, become U+FFFD.
std::string xmlEscape(const std::string& text);

/// Writes characters as they are, without the per-call cost of a stream
/// sentry (the writers of large documents call this millions of times); a
/// short write marks the stream bad, as `write` would.
inline void writeRaw(std::ostream& out, const char* data, std::size_t size) {
  std::streambuf* buffer = out.rdbuf();
  const auto length = static_cast<std::streamsize>(size);
  if (!buffer || buffer->sputn(data, length) != length) {
    out.setstate(std::ios::badbit);
  }
}

inline void writeRaw(std::ostream& out, const std::string& text) {
  writeRaw(out, text.data(), text.size());
}

/// Writes a string literal as it is.
template <std::size_t N>
void writeLiteral(std::ostream& out, const char (&literal)[N]) {
  writeRaw(out, literal, N - 1);
}

/// Writes the indentation of an element at `depth`: two blanks a level.
void writeIndent(std::ostream& out, int depth);

/// Writes ` name="value"` with a leading blank.
template <class T>
void writeXMLAttribute(std::ostream& out, const char* name, const T& value) {
  writeLiteral(out, " ");
  writeRaw(out, name, std::char_traits<char>::length(name));
  writeLiteral(out, "=\"");
  writeXMLValue(out, value);
  writeLiteral(out, "\"");
}

/// Writes `name="value"`, the first attribute of an element, with no blank.
template <class T>
void writeFirstXMLAttribute(std::ostream& out, const char* name, const T& value) {
  writeRaw(out, name, std::char_traits<char>::length(name));
  writeLiteral(out, "=\"");
  writeXMLValue(out, value);
  writeLiteral(out, "\"");
}

}  // namespace KelMediaLib
