#include "core/XMLIdentified.h"

#include <atomic>

namespace KelMediaLib {

namespace {
std::atomic<unsigned int> nextIdent{1};
}

XMLIdentified::XMLIdentified() : ident_(nextIdent.fetch_add(1, std::memory_order_relaxed)) {}

XMLIdentified::~XMLIdentified() = default;

}  // namespace KelMediaLib
