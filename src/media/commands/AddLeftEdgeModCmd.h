#pragma once

#include "media/commands/AddEdgeModCmd.h"

#include <boost/shared_ptr.hpp>

namespace KelMediaLib {

class Media;

/// Appends a modification to the left edge of a media.
class AddLeftEdgeModCmd : public AddEdgeModCmd {
 public:
  static boost::shared_ptr<AddLeftEdgeModCmd> create(boost::shared_ptr<const Media> media,
                                                     const EdgeModification& modification);

  AddLeftEdgeModCmd* clone() const override;

 private:
  AddLeftEdgeModCmd(boost::shared_ptr<const EdgeModifiable> edgeModifiable,
                    const EdgeModification& modification);
};

}  // namespace KelMediaLib
