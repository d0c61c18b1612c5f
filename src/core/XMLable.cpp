#include "core/XMLable.h"

#include "core/XMLText.h"

#include <ostream>

namespace KelMediaLib {

void XMLable::toXML(Options& options, int indent, const std::string& extraAttributes) const {
  std::ostream& out = options.out;
  writeIndent(out, indent);
  writeLiteral(out, "<");
  xmlName(options);
  if (xmlHasAttributes()) {
    writeLiteral(out, " ");
    xmlAttributes(options);
  }
  writeRaw(out, extraAttributes);
  if (!xmlHasBody()) {
    writeLiteral(out, "/>\n");
    return;
  }
  writeLiteral(out, ">\n");
  xmlBody(options, indent + 1);
  writeIndent(out, indent);
  writeLiteral(out, "</");
  xmlName(options);
  writeLiteral(out, ">\n");
}

unsigned int XMLable::Options::ident(const XMLIdentified& object) {
  const auto next = static_cast<unsigned int>(idents_.size() + 1);
  return idents_.emplace(&object, next).first->second;
}

std::string XMLable::genIndent(int depth) {
  return std::string(depth > 0 ? static_cast<std::string::size_type>(depth) * 2 : 0, ' ');
}

void XMLable::xmlAttributes(Options&) const {}

void XMLable::xmlBody(Options&, int) const {}

}  // namespace KelMediaLib
