#include "core/SubProject.h"

#include "core/ThreadSafe.h"

#include <utility>

namespace KelMediaLib {

SubProject::SubProject(boost::weak_ptr<const ThreadSafe> project) : project_(std::move(project)) {}

SubProject::~SubProject() = default;

}  // namespace KelMediaLib
