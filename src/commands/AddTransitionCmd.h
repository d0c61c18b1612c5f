#pragma once

#include "commands/TransitionDescription.h"
#include "core/MultiCommand.h"
#include "values/Parameter.h"

#include <boost/shared_ptr.hpp>

namespace KelMediaLib {
class EdgeModification;
class Media;
}  // namespace KelMediaLib

namespace OrvMediaLib {

/// Puts a transition on one edge of a media: one edge modification for each
/// modifier of the description, in order, and the edge's length when the edge
/// has none yet. An edge with a positive length keeps it. Modifications that
/// the edge already has stay beside the new ones. A modifier whose parameter
/// the media lacks gives a modification without a parameter.
///
/// Every edit is a member command of this group, so one undo takes the whole
/// transition away and redo puts the same modifications back.
class AddTransitionCmd : public KelMediaLib::MultiCommand {
 public:
  typedef TransitionDescription::ModifierDescription ModifierDescription;

  /// Copies the media pointer, the description and the length; a copy hasn't run.
  AddTransitionCmd(const AddTransitionCmd& other);

  void executeCommands(KelMediaLib::CommandHandler const* handler) override;

  boost::shared_ptr<const KelMediaLib::Media> media() const { return media_; }
  const TransitionDescription& transitionDescription() const { return description_; }
  /// The length given to an edge without one, timeline edit units.
  long long length() const { return length_; }

 protected:
  /// Throws `OrvException` on a null media or a negative length; `name` is
  /// the concrete command's, for the message.
  AddTransitionCmd(const char* name, boost::shared_ptr<const KelMediaLib::Media> media,
                   const TransitionDescription& description, long long length);

  // The side's edits. Those that run commands are valid only while
  // `executeCommands` runs, because they record their commands in this group.

  /// Changes the side's edge length by `length`.
  virtual void setTransitionLength(boost::shared_ptr<const KelMediaLib::Media> media,
                                   long long length) = 0;
  /// Appends `modification` to the side's edge.
  virtual void addEdgeMod(boost::shared_ptr<const KelMediaLib::Media> media,
                          const KelMediaLib::EdgeModification& modification) = 0;
  /// Takes every modification off the side's edge; true if there was one.
  /// Offered to subclasses that replace a transition rather than add one.
  virtual bool removePreviousEdgeMod(boost::shared_ptr<const KelMediaLib::Media> media) = 0;
  /// True when the side's edge length is zero or less.
  virtual bool shouldSetTransitionLength(boost::shared_ptr<const KelMediaLib::Media> media) = 0;
  /// The modification of `parameter` (null allowed) with the side's function.
  virtual KelMediaLib::EdgeModification edgeModForParameter(
      boost::shared_ptr<const KelMediaLib::Parameter<double>> parameter,
      const ModifierDescription& modifier) = 0;

 private:
  void addModifiers();

  boost::shared_ptr<const KelMediaLib::Media> media_;
  TransitionDescription description_;
  long long length_;
};

}  // namespace OrvMediaLib
