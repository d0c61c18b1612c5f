#pragma once

#include "actions/ActionDescription.h"
#include "commands/OrvCommandImpl.h"
#include "values/Range.h"

#include <boost/shared_ptr.hpp>

namespace KelMediaLib {
class CommandHandler;
class Media;
template <class T>
class Parameter;
}  // namespace KelMediaLib

namespace OrvMediaLib {

class Action;
class ActionBin;

/// Makes an action on a media from a description and puts it in a bin.
///
/// Undo takes the action out, redo puts the same action object back; the
/// project's edit journal makes the parameters exactly what they were before
/// and after (the values that the action's arrival handed to its neighbours
/// included). The command keeps the action alive while it is undone.
class AddActionCmd : public OrvCommandImpl {
 public:
  /// An action over (`start`, `duration`) of `media`'s own time, for `bin`.
  /// The description is copied. Throws `OrvException` on a null media.
  static boost::shared_ptr<AddActionCmd> create(boost::shared_ptr<const KelMediaLib::Media> media,
                                                boost::shared_ptr<const ActionBin> bin,
                                                const ActionDescription& description,
                                                long long start, long long duration);

  /// Adds the action. Throws `OrvException` if a range description names no
  /// parameter of doubles on the media, or when run a second time; what the
  /// project throws passes through.
  void execute(KelMediaLib::CommandHandler* handler) override;
  void unexecute(KelMediaLib::CommandHandler* handler) override;
  void reexecute(KelMediaLib::CommandHandler* handler) override;

  /// The action that `execute` made, the same object across undo and redo;
  /// null before a successful `execute`.
  boost::shared_ptr<Action> createdAction() const { return createdAction_; }

  /// The key frame that an undo writes back to on `parameter` for an edit at
  /// `time` (the parameter's axis): the last one before `time`, else the only
  /// one, else the first one after `time`.
  static long long calcEditTime(const KelMediaLib::Parameter<double>& parameter, long long time);

 private:
  AddActionCmd(boost::shared_ptr<const KelMediaLib::Media> media,
               boost::shared_ptr<const ActionBin> bin, const ActionDescription& description,
               long long start, long long duration);

  void requireParameters() const;

  boost::shared_ptr<Action> createdAction_;
  boost::shared_ptr<const KelMediaLib::Media> media_;
  boost::shared_ptr<const ActionBin> bin_;
  ActionDescription description_;
  KelMediaLib::Range<long long> range_;
};

}  // namespace OrvMediaLib
