#pragma once

#include "media/edges/EdgeModCommandHandler.h"
#include "media/edges/EdgeModifiable.h"

#include <boost/shared_ptr.hpp>

#include <vector>

namespace KelMediaLib {

/// The modifications of one side of an edge-modifiable, in their order.
inline std::vector<boost::shared_ptr<const EdgeModification>> edgeModificationsOf(
    const EdgeModifiable& edgeModifiable, EdgeSide side) {
  return side == EdgeSide::Left ? edgeModifiable.leftEdgeModifications()
                                : edgeModifiable.rightEdgeModifications();
}

}  // namespace KelMediaLib
