#include "core/ParserException.h"

#include <ostream>

namespace KelMediaLib {

ParserException::ParserException(const std::string& message, int line, int column)
    : KelMediaLibException(message), line(line), column(column) {}

std::string ParserException::positionText() const {
  return std::string(what()) + " (line " + std::to_string(line) + ", column " +
         std::to_string(column) + ")";
}

std::ostream& operator<<(std::ostream& out, const ParserException& exception) {
  return out << exception.positionText();
}

}  // namespace KelMediaLib
