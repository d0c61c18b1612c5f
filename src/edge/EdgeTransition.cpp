#include "edge/EdgeTransition.h"

#include "actions/OrvException.h"

namespace OrvMediaLib {

EdgeTransition::EdgeTransition(boost::shared_ptr<const KelMediaLib::Media> media) : media_(media) {
  if (!media_) {
    throw OrvException("EdgeTransition: no media given");
  }
}

EdgeTransition::~EdgeTransition() = default;

}  // namespace OrvMediaLib
