#pragma once

#include "media/commands/RemoveEdgeModCmd.h"

#include <boost/shared_ptr.hpp>

namespace KelMediaLib {

/// Takes the modifications of a parameter away from the right edge.
class RemoveRightEdgeModCmd : public RemoveEdgeModCmd {
 public:
  static boost::shared_ptr<RemoveRightEdgeModCmd> create(
      boost::shared_ptr<const EdgeModifiable> edgeModifiable,
      boost::shared_ptr<const Parameter<double>> parameter);

  RemoveRightEdgeModCmd* clone() const override;

 private:
  RemoveRightEdgeModCmd(boost::shared_ptr<const EdgeModifiable> edgeModifiable,
                        boost::shared_ptr<const Parameter<double>> parameter);
};

}  // namespace KelMediaLib
