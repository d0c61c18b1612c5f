#pragma once

#include "media/commands/MoveEdgeModCmd.h"

#include <boost/shared_ptr.hpp>

namespace KelMediaLib {

/// Changes the length of the transition at the left edge by `delta`.
class MoveLeftEdgeModCmd : public MoveEdgeModCmd {
 public:
  static boost::shared_ptr<MoveLeftEdgeModCmd> create(
      boost::shared_ptr<const EdgeModifiable> edgeModifiable, long long delta);

  MoveLeftEdgeModCmd* clone() const override;

 private:
  MoveLeftEdgeModCmd(boost::shared_ptr<const EdgeModifiable> edgeModifiable, long long delta);
};

}  // namespace KelMediaLib
