#pragma once

#include "commands/RemoveSelectedEdgeTransitionCmd.h"

#include <boost/shared_ptr.hpp>

#include <string>

namespace OrvMediaLib {

/// Takes everything off the left edge of a media (its start).
class RemoveSelectedLeftEdgeTransitionCmd : public RemoveSelectedEdgeTransitionCmd {
 public:
  /// Throws `OrvException` on a null media.
  static boost::shared_ptr<RemoveSelectedLeftEdgeTransitionCmd> create(
      boost::shared_ptr<const KelMediaLib::Media> media);

  RemoveSelectedLeftEdgeTransitionCmd* clone() const override;
  /// "RemoveSelectedLeftEdgeTransitionCmd", also the element name in a trace.
  std::string description() const override;
  void xmlName(Options& options) const override;

  /// The parameters of the media's left edge modifications, in their order.
  boost::shared_ptr<ParameterList> parameters(
      boost::shared_ptr<const KelMediaLib::Media> media) const override;

 protected:
  RemoveSelectedLeftEdgeTransitionCmd(boost::shared_ptr<const KelMediaLib::Media> media);
};

}  // namespace OrvMediaLib
