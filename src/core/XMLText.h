#pragma once

#include <ostream>
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

/// Escapes &, <, >, " and the control characters that an attribute would
/// otherwise normalise away, so that the text reads back unchanged.
std::string xmlEscape(const std::string& text);

/// Writes ` name="value"` with a leading blank.
template <class T>
void writeXMLAttribute(std::ostream& out, const char* name, const T& value) {
  out << ' ' << name << "=\"";
  writeXMLValue(out, value);
  out << '"';
}

}  // namespace KelMediaLib
