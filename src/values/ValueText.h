#pragma once

#include "core/XMLText.h"

#include <cstddef>
#include <istream>
#include <ostream>

namespace KelMediaLib {

/// Reads one character and puts the stream into its failed state unless it
/// is `expected`. Obeys the stream's whitespace setting.
bool readSeparator(std::istream& in, char expected);

/// Writes "(v0,v1,...)" with no blanks, each number in the shortest form that
/// reads back to the same bits.
template <class Number>
void writeTuple(std::ostream& out, const Number* values, std::size_t count) {
  out << '(';
  for (std::size_t i = 0; i < count; ++i) {
    if (i != 0) {
      out << ',';
    }
    writeXMLValue(out, values[i]);
  }
  out << ')';
}

/// Reads the form of writeTuple, checking every bracket and comma. Returns
/// false, with the stream failed, on any mismatch; `values` may then hold
/// part of the input, so callers read into temporaries.
template <class Number>
bool readTuple(std::istream& in, Number* values, std::size_t count) {
  if (!readSeparator(in, '(')) {
    return false;
  }
  for (std::size_t i = 0; i < count; ++i) {
    if (!(in >> values[i]) || !readSeparator(in, i + 1 < count ? ',' : ')')) {
      return false;
    }
  }
  return true;
}

}  // namespace KelMediaLib
