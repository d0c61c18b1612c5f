#pragma once

#include "core/ValueException.h"
#include "media/parser/SymbolTable.h"

#include <boost/pointer_cast.hpp>

#include <cstdio>

namespace KelMediaLib {

/// The lookup behind `SymbolTable::symbolForIdent`; include this header
/// together with the complete types of the objects looked up.
template <class T, class Map>
boost::shared_ptr<const T> symbolFinder(const Map& table, unsigned int ident) {
  const auto* found = table.find(ident);
  if (!found) {
    std::printf("symbolFinder throw Ident = %u", ident);
    std::fflush(stdout);
    throw ValueException<unsigned int>("ident not found in source table", ident);
  }
  return boost::dynamic_pointer_cast<const T>(*found);
}

template <class T>
boost::shared_ptr<const T> SymbolTable::symbolForIdent(unsigned int ident) const {
  return symbolFinder<T>(table(static_cast<const T*>(nullptr)), ident);
}

}  // namespace KelMediaLib
