#include "project/OrvProject.h"

#include "project/InternalOrvProject.h"

namespace OrvMediaLib {

boost::shared_ptr<OrvProject> OrvProject::create(unsigned int numerator, unsigned int denominator) {
  return InternalOrvProject::create(numerator, denominator);
}

OrvProject::~OrvProject() = default;

}  // namespace OrvMediaLib
