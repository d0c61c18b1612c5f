#pragma once

#include <boost/lexical_cast/bad_lexical_cast.hpp>

#include <charconv>
#include <cstring>
#include <locale>
#include <sstream>
#include <string>
#include <system_error>
#include <typeinfo>

namespace KelMediaLib {

namespace attributecast {

template <class T>
[[noreturn]] void refuse() {
  throw boost::bad_lexical_cast(typeid(std::string), typeid(T));
}

/// The general conversion, through `T`'s stream reader.
template <class T>
T byStream(const std::string& text) {
  std::istringstream in(text);
  in.imbue(std::locale::classic());
  in.unsetf(std::ios::skipws);
  in.precision(6);
  T value{};
  if (!(in >> value) || in.get() != std::char_traits<char>::eof()) {
    refuse<T>();
  }
  return value;
}

/// Where `std::from_chars` starts on a number that the stream reader takes:
/// past a '+' it accepts (and `from_chars` doesn't) when a digit, or for a
/// floating point number a point, follows; null when the text is one that
/// the stream reader refuses whatever follows.
inline const char* numberStart(const std::string& text, bool floating) {
  const char* first = text.c_str();
  if (*first == '+') {
    ++first;
    const bool digit = *first >= '0' && *first <= '9';
    if (!digit && !(floating && *first == '.')) {
      return nullptr;
    }
  }
  return first;
}

/// Integers of the stream reader's form (an optional sign, then decimal
/// digits) read without a stream: a load reads hundreds of thousands.
template <class T>
T integer(const std::string& text) {
  const char* first = numberStart(text, false);
  const char* last = text.c_str() + text.size();
  T value{};
  if (!first || first == last) {
    refuse<T>();
  }
  const std::from_chars_result result = std::from_chars(first, last, value);
  if (result.ec != std::errc() || result.ptr != last) {
    refuse<T>();
  }
  return value;
}

/// Floating point numbers: the stream reader takes signs, digits, a point
/// and an exponent and nothing else (no "inf", "nan" or hexadecimal, which
/// `from_chars` would take), rounding to nearest as `from_chars` does. A
/// value out of range goes to the stream reader, which decides as ever.
template <class T>
T floating(const std::string& text) {
  if (text.find_first_not_of("0123456789.eE+-") != std::string::npos) {
    refuse<T>();
  }
  const char* first = numberStart(text, true);
  const char* last = text.c_str() + text.size();
  T value{};
  if (!first || first == last) {
    refuse<T>();
  }
  const std::from_chars_result result = std::from_chars(first, last, value);
  if (result.ec == std::errc::result_out_of_range) {
    return byStream<T>(text);
  }
  if (result.ec != std::errc() || result.ptr != last) {
    refuse<T>();
  }
  return value;
}

}  // namespace attributecast

/// Converts the whole text of a project file attribute to `T` with `T`'s
/// stream reader, in the classic locale whatever the global one is, with no
/// white space skipped: a blank anywhere the reader doesn't consume it, or
/// any text left over, is `boost::bad_lexical_cast`. Integers and floating
/// point numbers are read without a stream, to the same values and with the
/// same refusals.
template <class T>
T attributeCast(const std::string& text) {
  return attributecast::byStream<T>(text);
}

template <>
inline long long attributeCast<long long>(const std::string& text) {
  return attributecast::integer<long long>(text);
}

template <>
inline int attributeCast<int>(const std::string& text) {
  return attributecast::integer<int>(text);
}

/// The stream reader takes a minus on an unsigned number and wraps it
/// round; those rare texts are left to it.
template <>
inline unsigned int attributeCast<unsigned int>(const std::string& text) {
  if (!text.empty() && text[0] == '-') {
    return attributecast::byStream<unsigned int>(text);
  }
  return attributecast::integer<unsigned int>(text);
}

template <>
inline double attributeCast<double>(const std::string& text) {
  return attributecast::floating<double>(text);
}

template <>
inline float attributeCast<float>(const std::string& text) {
  return attributecast::floating<float>(text);
}

/// A string attribute is its text as it stands.
template <>
inline std::string attributeCast<std::string>(const std::string& text) {
  return text;
}

}  // namespace KelMediaLib
