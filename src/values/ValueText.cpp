#include "values/ValueText.h"

namespace KelMediaLib {

bool readSeparator(std::istream& in, char expected) {
  char c = 0;
  if (!(in >> c)) {
    return false;
  }
  if (c != expected) {
    in.setstate(std::ios::failbit);
    return false;
  }
  return true;
}

}  // namespace KelMediaLib
