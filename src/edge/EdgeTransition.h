#pragma once

#include <boost/shared_ptr.hpp>

namespace KelMediaLib {
class Command;
class Media;
}  // namespace KelMediaLib

namespace OrvMediaLib {

/// The transition on one edge of a media, as a caller sees it: the thing
/// to select, whose media it is on, and the command that takes it away.
/// It stands for all the modifications on its edge; `EdgeTransitionBin`
/// makes and drops these objects as the edge changes.
class EdgeTransition {
 public:
  virtual ~EdgeTransition();

  /// The media whose edge holds the transition.
  boost::shared_ptr<const KelMediaLib::Media> media() const { return media_; }

  /// A new command, not yet run, that takes everything off this edge and
  /// sets its length back to zero; run it on the media's project.
  virtual boost::shared_ptr<KelMediaLib::Command> removeCmd() const = 0;

 protected:
  /// Throws `OrvException` on a null media.
  explicit EdgeTransition(boost::shared_ptr<const KelMediaLib::Media> media);

 private:
  boost::shared_ptr<const KelMediaLib::Media> media_;
};

}  // namespace OrvMediaLib
