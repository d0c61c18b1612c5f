#pragma once

#include "media/commands/RemoveEdgeModCmd.h"

#include <boost/shared_ptr.hpp>

namespace KelMediaLib {

/// Takes the modifications of a parameter away from the left edge.
class RemoveLeftEdgeModCmd : public RemoveEdgeModCmd {
 public:
  static boost::shared_ptr<RemoveLeftEdgeModCmd> create(
      boost::shared_ptr<const EdgeModifiable> edgeModifiable,
      boost::shared_ptr<const Parameter<double>> parameter);

  RemoveLeftEdgeModCmd* clone() const override;

 private:
  RemoveLeftEdgeModCmd(boost::shared_ptr<const EdgeModifiable> edgeModifiable,
                       boost::shared_ptr<const Parameter<double>> parameter);
};

}  // namespace KelMediaLib
