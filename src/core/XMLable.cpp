#include "core/XMLable.h"

#include "core/XMLText.h"

#include <cstdint>
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

std::size_t XMLable::Options::slotOf(const XMLIdentified* object) const {
  // Fibonacci hashing: the top bits of the address times 2^64 / phi.
  const auto hash = reinterpret_cast<std::uintptr_t>(object) * 0x9E3779B97F4A7C15ull;
  const std::size_t mask = slots_.size() - 1;
  std::size_t slot = static_cast<std::size_t>(static_cast<std::uint64_t>(hash) >> shift_);
  while (slots_[slot].first && slots_[slot].first != object) {
    slot = (slot + 1) & mask;
  }
  return slot;
}

bool XMLable::Options::named(const XMLIdentified& object) const {
  return !slots_.empty() && slots_[slotOf(&object)].first;
}

unsigned int XMLable::Options::ident(const XMLIdentified& object) {
  if (2 * (static_cast<std::size_t>(named_) + 1) > slots_.size()) {
    std::vector<Slot> old(slots_.empty() ? 512 : 2 * slots_.size(), Slot(nullptr, 0));
    old.swap(slots_);
    shift_ = 64;
    while ((std::size_t(1) << (64 - shift_)) < slots_.size()) {
      --shift_;
    }
    for (const Slot& slot : old) {
      if (slot.first) {
        slots_[slotOf(slot.first)] = slot;
      }
    }
  }
  Slot& slot = slots_[slotOf(&object)];
  if (!slot.first) {
    slot = Slot(&object, ++named_);
  }
  return slot.second;
}

std::string XMLable::genIndent(int depth) {
  return std::string(depth > 0 ? static_cast<std::string::size_type>(depth) * 2 : 0, ' ');
}

void XMLable::xmlAttributes(Options&) const {}

void XMLable::xmlBody(Options&, int) const {}

}  // namespace KelMediaLib
