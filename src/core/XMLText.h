#pragma once

#include <charconv>
#include <cstddef>
#include <cstring>
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

/// Gathers the short pieces of a document's lines (key frames, most of a
/// large project's text) in a buffer of its own and hands them to the stream
/// in one write when the buffer fills and at `flush`: a document of millions
/// of pieces of a few bytes spent most of its writing on the calls. Numbers
/// are written as `writeXMLValue` writes them; other values go through their
/// own `writeXMLValue` after what is gathered. The owner flushes before it
/// writes to the stream by other means, and at the end.
class XMLLine {
 public:
  explicit XMLLine(std::ostream& out) : out_(out) {}
  XMLLine(const XMLLine&) = delete;
  XMLLine& operator=(const XMLLine&) = delete;

  void raw(const char* data, std::size_t size) {
    if (size > kSize - used_) {
      flush();
      if (size > kSize) {
        writeRaw(out_, data, size);
        return;
      }
    }
    std::memcpy(buffer_ + used_, data, size);
    used_ += size;
  }
  template <std::size_t N>
  void literal(const char (&text)[N]) {
    raw(text, N - 1);
  }
  /// Two blanks a level.
  void indent(int depth);

  void value(double number) { chars(number); }
  void value(float number) { chars(number); }
  void value(int number) { chars(number); }
  void value(unsigned int number) { chars(number); }
  void value(long long number) { chars(number); }
  void value(unsigned long number) { chars(number); }
  template <class T>
  void value(const T& other) {
    flush();
    writeXMLValue(out_, other);
  }

  void flush() {
    if (used_ > 0) {
      writeRaw(out_, buffer_, used_);
      used_ = 0;
    }
  }

 private:
  static constexpr std::size_t kSize = 1024;
  // The most a number's text takes.
  static constexpr std::size_t kNumber = 32;

  template <class T>
  void chars(T number) {
    if (kSize - used_ < kNumber) {
      flush();
    }
    used_ = static_cast<std::size_t>(std::to_chars(buffer_ + used_, buffer_ + kSize, number).ptr -
                                     buffer_);
  }

  std::ostream& out_;
  std::size_t used_ = 0;
  char buffer_[kSize];
};

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
