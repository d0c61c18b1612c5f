#include "media/project/Project.h"

#include "media/project/InternalProject.h"

namespace KelMediaLib {

boost::shared_ptr<Project> Project::create(EditRate editRate) {
  return InternalProject::create(editRate);
}

Project::~Project() = default;

}  // namespace KelMediaLib
