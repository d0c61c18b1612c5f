#pragma once

#include "core/MultiCommand.h"
#include "values/Parameter.h"

#include <boost/shared_ptr.hpp>

#include <vector>

namespace KelMediaLib {
class Media;
}  // namespace KelMediaLib

namespace OrvMediaLib {

class EdgeModRemoveCmdGenerator;

/// Takes a transition off one edge of a media: the modifications of each
/// parameter that `parameters` names, then the edge's length, back to zero
/// (also when no parameter is named). The generator makes the edge's
/// commands; each runs as a member of this group, so one undo puts the
/// modifications and the length back.
class RemoveEdgeTransitionCmd : public KelMediaLib::MultiCommand {
 public:
  typedef std::vector<boost::shared_ptr<const KelMediaLib::Parameter<double>>> ParameterList;

  void executeCommands(KelMediaLib::CommandHandler const* handler) override;

  boost::shared_ptr<const KelMediaLib::Media> media() const { return media_; }

  /// The parameters whose modifications go, in order of removal; a null
  /// entry stands for the modifications without a parameter.
  virtual boost::shared_ptr<ParameterList> parameters(
      boost::shared_ptr<const KelMediaLib::Media> media) const = 0;

 protected:
  /// Throws `OrvException` on a null media or generator; `name` is the
  /// concrete command's, for the message.
  RemoveEdgeTransitionCmd(const char* name, boost::shared_ptr<const KelMediaLib::Media> media,
                          boost::shared_ptr<const EdgeModRemoveCmdGenerator> generator);

  const EdgeModRemoveCmdGenerator& generator() const { return *generator_; }

  /// Runs the removal of each parameter's modifications, then the trim of
  /// the edge. Valid only while `executeCommands` runs.
  void removeModifiers(const ParameterList& parameters);

 private:
  boost::shared_ptr<const KelMediaLib::Media> media_;
  boost::shared_ptr<const EdgeModRemoveCmdGenerator> generator_;
};

}  // namespace OrvMediaLib
