#include "core/KelObject.h"

#include <boost/core/demangle.hpp>

#include <typeinfo>

namespace KelMediaLib {

KelObject::~KelObject() = default;

std::string KelObject::description() const {
  return boost::core::demangle(typeid(*this).name());
}

}  // namespace KelMediaLib
