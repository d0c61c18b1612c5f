#pragma once

#include "media/commands/AddEdgeModCmd.h"

#include <boost/shared_ptr.hpp>

namespace KelMediaLib {

class Media;

/// Appends a modification to the right edge of a media.
class AddRightEdgeModCmd : public AddEdgeModCmd {
 public:
  static boost::shared_ptr<AddRightEdgeModCmd> create(boost::shared_ptr<const Media> media,
                                                      const EdgeModification& modification);

  AddRightEdgeModCmd* clone() const override;

 private:
  AddRightEdgeModCmd(boost::shared_ptr<const EdgeModifiable> edgeModifiable,
                     const EdgeModification& modification);
};

}  // namespace KelMediaLib
