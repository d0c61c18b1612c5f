#include "core/Identified.h"

#include <utility>

namespace KelMediaLib {

Identified::Identified(std::string name) : name_(std::move(name)) {}

Identified::~Identified() = default;

}  // namespace KelMediaLib
