#pragma once

#include "commands/RemoveEdgeTransitionCmd.h"
#include "commands/TransitionDescription.h"

namespace OrvMediaLib {

/// Takes off an edge what a transition's description names (a transition
/// dragged away from the edge): the modifications of the described
/// parameters, nothing more, and the edge's length. A name that the media
/// lacks stands for the modifications without a parameter.
class RemoveDraggedEdgeTransitionCmd : public RemoveEdgeTransitionCmd {
 public:
  const TransitionDescription& transitionDescription() const { return description_; }

  /// The described parameters, in the description's order.
  boost::shared_ptr<ParameterList> parameters(
      boost::shared_ptr<const KelMediaLib::Media> media) const override;

 protected:
  RemoveDraggedEdgeTransitionCmd(const char* name,
                                 boost::shared_ptr<const KelMediaLib::Media> media,
                                 boost::shared_ptr<const EdgeModRemoveCmdGenerator> generator,
                                 const TransitionDescription& description);

  /// One parameter's modifications and then the edge's length, as one step,
  /// for subclasses that take a transition off piece by piece. Valid only
  /// while `executeCommands` runs.
  void removeEdgeMod(boost::shared_ptr<const KelMediaLib::Media> media,
                     boost::shared_ptr<const KelMediaLib::Parameter<double>> parameter);

 private:
  TransitionDescription description_;
};

}  // namespace OrvMediaLib
