#pragma once

#include <boost/lexical_cast/bad_lexical_cast.hpp>

#include <locale>
#include <sstream>
#include <string>
#include <typeinfo>

namespace KelMediaLib {

/// Converts the whole text of a project file attribute to `T` with `T`'s
/// stream reader, in the classic locale whatever the global one is, with no
/// white space skipped: a blank anywhere the reader doesn't consume it, or
/// any text left over, is `boost::bad_lexical_cast`.
template <class T>
T attributeCast(const std::string& text) {
  std::istringstream in(text);
  in.imbue(std::locale::classic());
  in.unsetf(std::ios::skipws);
  in.precision(6);
  T value{};
  if (!(in >> value) || in.get() != std::char_traits<char>::eof()) {
    throw boost::bad_lexical_cast(typeid(std::string), typeid(T));
  }
  return value;
}

/// A string attribute is its text as it stands.
template <>
inline std::string attributeCast<std::string>(const std::string& text) {
  return text;
}

}  // namespace KelMediaLib
