#pragma once

#include "media/commands/MoveEdgeModCmd.h"

#include <boost/shared_ptr.hpp>

namespace KelMediaLib {

/// Changes the length of the transition at the right edge by `delta`.
class MoveRightEdgeModCmd : public MoveEdgeModCmd {
 public:
  static boost::shared_ptr<MoveRightEdgeModCmd> create(
      boost::shared_ptr<const EdgeModifiable> edgeModifiable, long long delta);

  MoveRightEdgeModCmd* clone() const override;

 private:
  MoveRightEdgeModCmd(boost::shared_ptr<const EdgeModifiable> edgeModifiable, long long delta);
};

}  // namespace KelMediaLib
