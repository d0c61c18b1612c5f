#pragma once

#include "commands/RemoveSelectedEdgeTransitionCmd.h"

#include <boost/shared_ptr.hpp>

#include <string>

namespace OrvMediaLib {

/// Takes everything off the right edge of a media (its end).
class RemoveSelectedRightEdgeTransitionCmd : public RemoveSelectedEdgeTransitionCmd {
 public:
  /// Throws `OrvException` on a null media.
  static boost::shared_ptr<RemoveSelectedRightEdgeTransitionCmd> create(
      boost::shared_ptr<const KelMediaLib::Media> media);

  RemoveSelectedRightEdgeTransitionCmd* clone() const override;
  /// "RemoveSelectedRightEdgeTransitionCmd", also the element name in a trace.
  std::string description() const override;
  void xmlName(Options& options) const override;

  /// The parameters of the media's right edge modifications, in their order.
  boost::shared_ptr<ParameterList> parameters(
      boost::shared_ptr<const KelMediaLib::Media> media) const override;

 protected:
  RemoveSelectedRightEdgeTransitionCmd(boost::shared_ptr<const KelMediaLib::Media> media);
};

}  // namespace OrvMediaLib
