#include "core/XMLable.h"

#include <ostream>

namespace KelMediaLib {

void XMLable::toXML(Options& options, int indent, const std::string& extraAttributes) const {
  std::ostream& out = options.out;
  out << genIndent(indent) << '<';
  xmlName(options);
  if (xmlHasAttributes()) {
    out << ' ';
    xmlAttributes(options);
  }
  out << extraAttributes;
  if (!xmlHasBody()) {
    out << "/>\n";
    return;
  }
  out << ">\n";
  xmlBody(options, indent + 1);
  out << genIndent(indent) << "</";
  xmlName(options);
  out << ">\n";
}

std::string XMLable::genIndent(int depth) {
  return std::string(depth > 0 ? static_cast<std::string::size_type>(depth) * 2 : 0, ' ');
}

void XMLable::xmlAttributes(Options&) const {}

void XMLable::xmlBody(Options&, int) const {}

}  // namespace KelMediaLib
