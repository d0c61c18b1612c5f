#pragma once

#include "media/project/Project.h"

#include <boost/shared_ptr.hpp>

namespace OrvMediaLib {

class Action;
class ActionBin;
class EdgeTransitionBin;
class OrvCommand;

/// A project of the editing model: a project of the media model with the
/// action bins, edge transition bins and action graveyard on top of it.
/// Every edit, of the timeline and of actions, runs as a command through
/// `execute` or `orvExecute` and becomes one entry of the one history.
///
/// The project owns its bins; the accessors hand out shared pointers to them,
/// and a bin is recognised by its address alone.
class OrvProject : public KelMediaLib::Project {
 public:
  /// A new, empty project at `numerator`/`denominator` edit units per second
  /// (normalised: 30/2 is 15/1). Throws the rational's `bad_rational` "bad
  /// rational: zero denominator" on a zero denominator and
  /// `KelMediaLibException` on a zero rate.
  static boost::shared_ptr<OrvProject> create(unsigned int numerator, unsigned int denominator);

  ~OrvProject() override;

  /// Runs an action command with this project as its `OrvCommandHandler`,
  /// wrapped in an `OrvCommandExecutor`, as one entry of the history; returns
  /// what `execute` returns. The command's failure passes through.
  virtual bool orvExecute(boost::shared_ptr<OrvCommand> command) = 0;
  /// The main bin of actions.
  virtual boost::shared_ptr<const ActionBin> actionBin() const = 0;
  /// The bin of the actions that automatic zoom makes.
  virtual boost::shared_ptr<const ActionBin> zdActionBin() const = 0;
  /// The bin of actions on audio media.
  virtual boost::shared_ptr<const ActionBin> audioActionBin() const = 0;
  /// The transitions at the edges of visual media that the caller asked for.
  virtual boost::shared_ptr<EdgeTransitionBin> videoEdgeTransitionBin() const = 0;
  /// The transitions at the edges of audio media that the caller asked for.
  virtual boost::shared_ptr<EdgeTransitionBin> audioEdgeTransitionBin() const = 0;
  /// The file reader's way in: puts an action whose key frames are in their
  /// parameters already into `bin`. Throws `OrvException` if a range's left
  /// key frame isn't its parameter's; a bin of another project is ignored.
  virtual void parserAddAction(boost::shared_ptr<const ActionBin> bin,
                               boost::shared_ptr<const Action> action) = 0;
};

}  // namespace OrvMediaLib
